// Controls as the dialog makes them, all autoreleased.

#ifndef HOST_DIALOG_CONTROLS_H
#define HOST_DIALOG_CONTROLS_H

#import <Cocoa/Cocoa.h>

#include <string>

#include "host/dialog/LayoutGeometry.h"

/// A view whose coordinates run downwards.
@interface FlippedView : NSView
@end

/// Text that cannot be edited; it wraps.
NSTextField *Label(NSString *text);
/// A caption before a control; it gets a colon.
NSTextField *Caption(const std::string &text);
NSTextField *TextBox(id<NSTextFieldDelegate> delegate);
NSButton *PushButton(NSString *title, id target, SEL action);
NSPopUpButton *PopUpButton(id target, SEL action);

/// Adds an item even where there is one of the same title already.
NSMenuItem *AddItem(NSPopUpButton *popUp, NSString *title, id representedObject);
void AddSeparator(NSPopUpButton *popUp);

/// How high the label must be to show all its text in this width.
CGFloat HeightOfText(NSTextField *label, CGFloat width);

/// How wide the label must be to show its text on one line.
CGFloat WidthOfText(NSTextField *label);
/// How wide the button must be to show its title, and not less than this.
CGFloat WidthOfButton(NSButton *button, CGFloat least);

NSString *String(const std::string &text);  // bytes that are no UTF-8: as Latin-1
/// A message (a clause without full stop) as a sentence.
NSString *Sentence(const std::string &message);
std::string Text(NSString *string);  // nil: ""

#endif
