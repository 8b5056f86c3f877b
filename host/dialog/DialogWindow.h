// The window that shows one panel.

#ifndef HOST_DIALOG_DIALOGWINDOW_H
#define HOST_DIALOG_DIALOGWINDOW_H

#import <Cocoa/Cocoa.h>

/// A titled window with the panel's view above a Done button, sized to fit them. Control and
/// Command with X, C, V and A edit the focused text; Return, Escape and the window's close button
/// close it. Tab walks the panel's own key view loop, then the Done button.
@interface DialogWindow : NSWindow <NSWindowDelegate> {
  NSView *_panelView;
}

- (instancetype)initWithTitle:(NSString *)title panelView:(NSView *)panelView;

/// Shows the window and returns when it has been closed. The panel's view is still in it.
- (void)runUntilClosed;

/// Takes the panel's view out, so that the panel may be dropped.
- (void)removePanelView;

@end

/// The view as it would be drawn now, in PNG format; nil without a display.
NSData *PictureOfView(NSView *view);

#endif
