#import "host/dialog/Appearance.h"

#import <objc/runtime.h>

#include "host/dialog/ControlImages.h"
#include "platform/Implementation.h"

namespace {

NSColor *GrayForGreyedTexts(id, SEL) { return [NSColor colorWithCalibratedWhite:0.5 alpha:1]; }

}  // namespace

void UseLightAppearance() {
  NSString *const background = @"0.95 0.95 0.95";
  NSString *const pale = @"0.98 0.98 0.98";
  NSString *const accent = @"0.78 0.87 0.98";
  [[NSUserDefaults standardUserDefaults] registerDefaults:@{
    @"windowBackgroundColor" : background,
    @"controlColor" : background,
    @"controlBackgroundColor" : background,
    @"controlHighlightColor" : pale,
    @"controlShadowColor" : @"0.62 0.62 0.62",
    @"controlDarkShadowColor" : @"0.45 0.45 0.45",
    @"disabledControlTextColor" : @"0.45 0.45 0.45",
    @"selectedControlColor" : accent,
    @"selectedMenuItemColor" : accent,
    @"selectedTextBackgroundColor" : accent,
    @"keyboardFocusIndicatorColor" : @"0.10 0.35 0.75",
    // Scrollers on the right.
    @"NSScrollViewInterfaceStyle" : @"NSMacintoshInterfaceStyle",
  }];
  UseLightControlImages();
  // No default names this color. Panels choose it themselves, at any time, and compare with it.
  method_setImplementation(class_getClassMethod([NSColor class], @selector(lightGrayColor)),
                           ImplementationBy(GrayForGreyedTexts));
}

void StraightenButtons(NSView *view) {
  for (NSView *subview in [view subviews]) StraightenButtons(subview);
  if (![view isKindOfClass:[NSButton class]]) return;
  NSButton *button = (NSButton *)view;
  if ([button bezelStyle] != NSRoundedBezelStyle) return;
  [button setBezelStyle:NSRegularSquareBezelStyle];
  const NSSize room =
      [button isKindOfClass:[NSPopUpButton class]] ? NSMakeSize(3, 1) : NSMakeSize(6, 3);
  [button setFrame:NSInsetRect([button frame], room.width, room.height)];
}
