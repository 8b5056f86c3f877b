// The panel's layout without the panel.

#ifndef BENCH_LAYOUT_BAREOWNER_H
#define BENCH_LAYOUT_BAREOWNER_H

#import <Cocoa/Cocoa.h>

/// Has the outlets and actions that the layout wants of its owner, and does nothing with them.
@interface BareOwner : NSObject {
  NSView *_view;
  NSButton *_functionValid;
  NSPopUpButton *_popUpSize;
  NSPopUpButton *_popUpDensity;
  NSPopUpButton *_popUpColor;
  NSTextField *_textBoxStartNumber;
  NSStepper *_stepperStartNumber;
  NSButton *_defaultButton;
  NSTextField *_labelSize;
  NSTextField *_labelDensity;
  NSTextField *_labelColor;
  NSTextField *_labelStartNumber;
  NSTextField *_labelStartNumberRange;
}

@property(nonatomic, retain) NSView *view;
@property(nonatomic, retain) NSButton *functionValid;
@property(nonatomic, retain) NSPopUpButton *popUpSize;
@property(nonatomic, retain) NSPopUpButton *popUpDensity;
@property(nonatomic, retain) NSPopUpButton *popUpColor;
@property(nonatomic, retain) NSTextField *textBoxStartNumber;
@property(nonatomic, retain) NSStepper *stepperStartNumber;
@property(assign) NSButton *defaultButton;
@property(nonatomic, retain) NSTextField *labelSize;
@property(nonatomic, retain) NSTextField *labelDensity;
@property(nonatomic, retain) NSTextField *labelColor;
@property(nonatomic, retain) NSTextField *labelStartNumber;
@property(nonatomic, retain) NSTextField *labelStartNumberRange;

/// Loads the layout that is in the bundle. NO: it could not be.
- (BOOL)loadLayoutOfBundle:(NSBundle *)bundle;

- (void)changeFunctionValid:(id)sender;
- (void)restoreDefaults:(id)sender;

@end

/// Takes all outlets of the layout from its owner, and gives the layout's objects back. The
/// controls must not be on the screen.
void GiveBackLayout(id owner);

#endif
