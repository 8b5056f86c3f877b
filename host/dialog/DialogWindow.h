// A window that behaves as people expect of dialogs.

#ifndef HOST_DIALOG_DIALOGWINDOW_H
#define HOST_DIALOG_DIALOGWINDOW_H

#import <Cocoa/Cocoa.h>

#include <functional>

@class FocusRing;

/// Control and Command with X, C, V and A edit the focused text; Escape does what the window's
/// close button does. A click on a pop-up button opens its menu and leaves it open. What an event
/// raises is complained of, and the window lives on. A ring shows which control has the focus.
@interface DialogWindow : NSWindow {
  FocusRing *_focusRing;
  std::function<void()> _afterEvents;
}

/// Titled and closable, around a view whose size it takes. It is not released when closed.
- (instancetype)initWithTitle:(NSString *)title view:(NSView *)view resizable:(BOOL)resizable;

/// Before it is shown: makes it a dialog of the X window of another program, as far as that is
/// there.
- (void)makeDialogOfWindow:(unsigned long)parent;

/// Called when an event of the window's has been handled.
- (void)setAfterEvents:(std::function<void()>)afterEvents;

/// Handles the next event of the application, waiting for it.
+ (void)handleNextEvent;

@end

/// The view as it would be drawn now, in PNG format; nil without a display.
NSData *PictureOfView(NSView *view);

#endif
