// GNUstep's Cocoa umbrella, with the AppKit operations that it lacks.

#ifndef PLATFORM_COCOA_H
#define PLATFORM_COCOA_H

#include_next <Cocoa/Cocoa.h>
#import "../ControlIdentifiers.h"

#endif
