// Computed sizes and rectangles as the platform's own.

#ifndef HOST_DIALOG_PLATFORMGEOMETRY_H
#define HOST_DIALOG_PLATFORMGEOMETRY_H

#import <Foundation/Foundation.h>

#include "host/dialog/LayoutGeometry.h"

inline NSRect PlatformRect(const LayoutRect &rect) {
  return NSMakeRect(rect.x, rect.y, rect.width, rect.height);
}

inline NSSize PlatformSize(LayoutSize size) { return NSMakeSize(size.width, size.height); }

inline LayoutSize SizeForLayout(NSSize size) { return {size.width, size.height}; }

#endif
