// GNUstep's Cocoa umbrella, with the AppKit operations that older ones lack.

#ifndef PLATFORM_COCOA_H
#define PLATFORM_COCOA_H

#include_next <Cocoa/Cocoa.h>
#import "../ControlIdentifiers.h"

#endif
