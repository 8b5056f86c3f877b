// Where controls draw their texts.

#ifndef TESTS_GUI_TEXTAREA_H
#define TESTS_GUI_TEXTAREA_H

#import <Cocoa/Cocoa.h>

/// nil: the control has no text.
NSString *TextOfControl(NSControl *control);

/// Where in the control's bounds its text lies, or would lie were there room for all of it; of a
/// pop-up button's items the widest counts. Of the text's own font, without the room around it.
NSRect TextArea(NSControl *control);

#endif
