// The pictures of controls, as the platform finds them under the names that its cells use.

#import <Cocoa/Cocoa.h>

#import "tests/support/ObjCTest.h"

namespace {

// A pixel of the picture on white, counted from the lower left.
NSColor *PixelOf(NSString *name, int x, int y) {
  NSImage *image = [NSImage imageNamed:name];
  NSImage *canvas = [[[NSImage alloc] initWithSize:[image size]] autorelease];
  const NSRect all = {NSZeroPoint, [image size]};
  [canvas lockFocus];
  [[NSColor whiteColor] set];
  NSRectFill(all);
  [image compositeToPoint:NSZeroPoint operation:NSCompositeSourceOver];
  NSBitmapImageRep *pixels = [[[NSBitmapImageRep alloc] initWithFocusedViewRect:all] autorelease];
  [canvas unlockFocus];
  return [[pixels colorAtX:x y:static_cast<int>(all.size.height) - 1 - y]
      colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
}

bool IsWhite(NSColor *color) {
  return
      [color redComponent] > 0.95 && [color greenComponent] > 0.95 && [color blueComponent] > 0.95;
}

}  // namespace

OBJC_TEST(ControlImages, ACheckedBoxIsFilledAndAnUncheckedOneIsNot) {
  EXPECT_TRUE(IsWhite(PixelOf(@"NSSwitch", 11, 4)));
  NSColor *filling = PixelOf(@"NSHighlightedSwitch", 11, 4);
  EXPECT_GT([filling blueComponent], 0.6);
  EXPECT_LT([filling redComponent], 0.3);
}

OBJC_TEST(ControlImages, ACheckedBoxHasAWhiteTick) {
  EXPECT_TRUE(IsWhite(PixelOf(@"NSHighlightedSwitch", 7, 6)) ||
              IsWhite(PixelOf(@"NSHighlightedSwitch", 7, 5)));
}

OBJC_TEST(ControlImages, APopUpButtonHasAnArrowDown) {
  // The tip is below, the sides above it are open.
  EXPECT_FALSE(IsWhite(PixelOf(@"common_Nibble", 7, 6)));
  EXPECT_TRUE(IsWhite(PixelOf(@"common_Nibble", 7, 9)));
  EXPECT_FALSE(IsWhite(PixelOf(@"common_Nibble", 4, 9)));
}
