// Which view has the focus. While a text box is edited, the platform gives the focus to a field
// editor, which stands for it.

#ifndef HOST_DIALOG_FOCUS_H
#define HOST_DIALOG_FOCUS_H

#import <Cocoa/Cocoa.h>

/// The view of the window that the user is in; nil: none.
NSView *FocusedView(NSWindow *window);

/// What is being typed counts; the focus stays.
void EndEditing(NSWindow *window);

#endif
