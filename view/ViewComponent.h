// What the view controller asks of every control of the panel.

#ifndef VIEW_VIEWCOMPONENT_H
#define VIEW_VIEWCOMPONENT_H

#import <Cocoa/Cocoa.h>

@protocol ViewComponent

@required

/// Takes the active look for a true number and the grayed look for a false one. Nothing else of the
/// control changes.
- (void)changeState:(NSNumber *)active;

@end

#endif
