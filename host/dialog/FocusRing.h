// Where the focus is.

#ifndef HOST_DIALOG_FOCUSRING_H
#define HOST_DIALOG_FOCUSRING_H

#import <Cocoa/Cocoa.h>

/// A frame around the control of a window that has the focus. The platform draws thin dots inside
/// some kinds of controls; in a text box that is edited there is a caret at most.
@interface FocusRing : NSView

/// Stands where the window's focus is now, beside that control in its superview; nowhere while the
/// focus is in no control.
- (void)followFocusOfWindow:(NSWindow *)window;

@end

#endif
