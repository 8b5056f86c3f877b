// The dialog's colors.

#ifndef HOST_DIALOG_APPEARANCE_H
#define HOST_DIALOG_APPEARANCE_H

#import <Cocoa/Cocoa.h>

/// Makes a light look the default of this process; what the user has set for themselves wins. On
/// the platform's own gray, grayed captions of extension panels could not be seen at all, and
/// hardly on a lighter one: they are drawn in light gray, which becomes a darker gray here. Call
/// before the application object exists.
void UseLightAppearance();

/// Gives all rounded push buttons and pop-up buttons in the view straight edges, inside the room
/// that layouts leave around rounded ones: the platform draws titles right up to round edges.
void StraightenButtons(NSView *view);

#endif
