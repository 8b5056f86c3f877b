#import "host/dialog/FocusRing.h"

#import "tests/gui/PanelOnScreen.h"
#import "tests/gui/Pixels.h"
#import "tests/support/ObjCTest.h"

namespace {

const double kAnyDifference = 1.01;

void Focus(NSWindow *window, NSResponder *responder) {
  [window makeFirstResponder:responder];
  HandleEventsUntilSettled();
}

FocusRing *RingIn(NSView *view) {
  for (NSView *subview in [view subviews]) {
    if ([subview isKindOfClass:[FocusRing class]]) return (FocusRing *)subview;
    if (FocusRing *ring = RingIn(subview)) return ring;
  }
  return nil;
}

FocusRing *Ring(const PanelOnScreen &panel) { return RingIn([panel.window() contentView]); }

}  // namespace

OBJC_TEST(FocusRing, StandsAroundTheControlThatHasTheFocus) {
  PanelOnScreen panel(NumberingFrom(@"25"));
  for (NSView *control : std::initializer_list<NSView *>{
           panel[@"popUpSize"], panel[@"textBoxStartNumber"], [panel.dialog().view() copies],
           [panel.dialog().view() print]}) {
    Focus(panel.window(), control);
    EXPECT_EQ([control superview], [Ring(panel) superview]);
    EXPECT_TRUE(NSContainsRect([Ring(panel) frame], [control frame]));
  }
}

OBJC_TEST(FocusRing, LeavesNothingBehindWhenItGoes) {
  PanelOnScreen panel(NumberingFrom(@"25"));
  Focus(panel.window(), nil);
  const Pixels before = PixelsOfView([panel.window() contentView]);
  for (NSString *outlet in @[ @"popUpSize", @"textBoxStartNumber", @"defaultButton" ]) {
    Focus(panel.window(), panel[outlet]);
    EXPECT_LT(0,
              CountDiffering(before, PixelsOfView([panel.window() contentView]), kAnyDifference));
  }
  Focus(panel.window(), nil);
  EXPECT_EQ(nil, Ring(panel));
  EXPECT_EQ(0, CountDiffering(before, PixelsOfView([panel.window() contentView]), kAnyDifference));
}

OBJC_TEST(FocusRing, LeavesNothingBehindInAPartOfTheWindowThatItLeaves) {
  PanelOnScreen panel(NumberingFrom(@"25"));
  NSView *help = [panel.dialog().view() help];
  Focus(panel.window(), help);
  const Pixels before = PixelsOfView([panel.window() contentView]);
  Focus(panel.window(), panel[@"functionValid"]);
  EXPECT_LT(0, CountDiffering(before, PixelsOfView([panel.window() contentView]), kAnyDifference));
  PressKeys({"shift+Tab"});
  PressKeys({"Tab"});
  Focus(panel.window(), help);
  EXPECT_EQ(0, CountDiffering(before, PixelsOfView([panel.window() contentView]), kAnyDifference));
}

OBJC_TEST(FocusRing, MovesWithItsControl) {
  PanelOnScreen panel(NumberingFrom(@"25"));
  NSView *print = [panel.dialog().view() print];
  Focus(panel.window(), print);
  const NSRect before = [Ring(panel) frame];
  NSRect frame = [panel.window() frame];
  frame.size.width += 40;
  [panel.window() setFrame:frame display:YES];
  HandleEventsUntilSettled();
  EXPECT_EQ(NSMinX(before) + 40, NSMinX([Ring(panel) frame]));
}

OBJC_TEST(FocusRing, TakesNoClicks) {
  PanelOnScreen panel(NumberingFrom(@"25"));
  NSView *size = panel[@"popUpSize"];
  Focus(panel.window(), size);
  NSView *view = [size superview];
  const NSPoint on_the_ring =
      NSMakePoint(NSMinX([Ring(panel) frame]) + 1, NSMidY([Ring(panel) frame]));
  EXPECT_EQ(view, [view hitTest:[view convertPoint:on_the_ring toView:[view superview]]]);
}

OBJC_TEST(FocusRing, DoesNotGoWithThePanel) {
  NSView *view = nil;
  {
    PanelOnScreen panel(NumberingFrom(@"25"));
    Focus(panel.window(), panel[@"popUpSize"]);
    view = [panel[@"view"] retain];
    EXPECT_NE(nil, RingIn(view));
  }
  EXPECT_EQ(nil, RingIn(view));
  [view release];
}
