// NSUserInterfaceItemIdentification for views, which NSView of older GNUsteps lacks.

#ifndef PLATFORM_CONTROLIDENTIFIERS_H
#define PLATFORM_CONTROLIDENTIFIERS_H

#import <AppKit/NSUserInterfaceItemIdentification.h>
#import <AppKit/NSView.h>

@interface NSView (ControlIdentifiers) <NSUserInterfaceItemIdentification>

/// The identifier last given to the view, nil if none was. Copied on assignment; it goes with the
/// view, and assigning nil removes it. May be used from any thread.
@property(copy) NSUserInterfaceItemIdentifier identifier;

@end

#endif
