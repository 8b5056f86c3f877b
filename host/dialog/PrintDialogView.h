// The controls of the print dialog; PrintDialogLayout says where they stand.

#ifndef HOST_DIALOG_PRINTDIALOGVIEW_H
#define HOST_DIALOG_PRINTDIALOGVIEW_H

#import <Cocoa/Cocoa.h>

#import "host/dialog/PanelArea.h"
#import "host/dialog/PreviewView.h"

/// All controls of the dialog, without targets. Whatever changes their texts sends layOut
/// afterwards.
@interface PrintDialogView : NSView {
  // Its subviews, and retained as such.
  NSTextField *_notices;
  NSTextField *_printerCaption, *_printerInfo;
  NSPopUpButton *_printers;
  NSTextField *_presetCaption;
  NSPopUpButton *_presets;
  NSTextField *_copiesCaption, *_pagesCaption, *_pagesHint;
  NSTextField *_copies, *_pages;
  NSStepper *_copiesStepper;
  NSBox *_leftLine, *_rightLine, *_lowerLine;
  NSPopUpButton *_panels;
  PanelArea *_panelArea;
  NSButton *_help, *_fold;
  PreviewView *_preview;  // nil: the dialog has none
  CGFloat _panelWidth;
  NSTextField *_progressText;
  NSProgressIndicator *_progress;
  NSButton *_cancel, *_print;
}

@property(readonly) NSPopUpButton *printers;
@property(readonly) NSTextField *printerInfo;  // below the pop-up
@property(readonly) NSPopUpButton *presets;
@property(readonly) NSTextField *copies;
@property(readonly) NSStepper *copiesStepper;
@property(readonly) NSTextField *pages;
@property(readonly) NSPopUpButton *panels;
@property(readonly) NSButton *help;
@property(readonly) NSButton *fold;  // shows the preview, or puts it away
@property(readonly) NSButton *cancel;
@property(readonly) NSButton *print;

/// The view in the area of the panels, nil: none. One that is larger than the area scrolls. Tab
/// walks through the controls above it, its own, the buttons. Before a view is taken out, the focus
/// is.
- (void)setPanelView:(NSView *)view;
- (NSView *)panelView;
/// Gives the focus to the pop-up of panels if it is in the panel's view; what is typed there is
/// ended.
- (void)moveFocusOutOfPanel;

/// What the printer is, in few words; empty: nothing.
- (void)setPrinterInfo:(NSString *)text;
/// What the user should know, above everything else; empty: nothing.
- (void)setNotices:(NSString *)text;
/// What is being done with the job, beside the buttons; empty: nothing. The fraction is from 0 to
/// 1, negative: no bar.
- (void)setProgressText:(NSString *)text fraction:(double)fraction;

/// The preview beside everything else, hidden at first, and the button that shows it.
- (PreviewView *)addPreview;
- (void)setShowsPreview:(BOOL)shows;
- (BOOL)showsPreview;
/// What the panels need beside it.
- (void)setPanelWidth:(CGFloat)width;

/// The smallest size in which nothing but the panel is cut, and that scrolls.
- (NSSize)minSize;
/// The size that shows all of a panel of this size.
- (NSSize)sizeForPanelSize:(NSSize)size;

/// Puts everything in its place.
- (void)layOut;

@end

#endif
