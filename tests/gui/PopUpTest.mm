#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

// A slow machine: handling what happens while the mouse is pressed takes a while.
@interface SlowTracking : NSObject
@end

@implementation SlowTracking

- (void)begin {
  [self performSelector:@selector(takeAWhile)
             withObject:nil
             afterDelay:0
                inModes:@[ NSEventTrackingRunLoopMode ]];
}

- (void)takeAWhile {
  [NSThread sleepForTimeInterval:0.6];
}

@end

namespace {

NSWindow *MenuWindow(NSPopUpButton *popUp) {
  return [(NSView *)[[popUp menu] menuRepresentation] window];
}

// Where the open menu shows the item so many below the selected one, which lies over the button.
NSRect ItemBelow(NSPopUpButton *popUp, CGFloat items) {
  const NSRect button = [popUp bounds];
  const CGFloat down = [popUp isFlipped] ? NSHeight(button) : -NSHeight(button);
  return NSOffsetRect(button, 0, items * down);
}

}  // namespace

OBJC_TEST(PopUp, SpaceOpensArrowsMoveReturnChooses) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.Press({"Tab", "space", "Down", "Return"});
  EXPECT_EQUAL_OBJECTS(@"Large", [panel[@"popUpSize"] titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Large", [panel.SavedSettings() objectForKey:@"VQBNSize"]);
  EXPECT_TRUE([panel.window() isVisible]) << "Return was the menu's, not the window's";
}

OBJC_TEST(PopUp, EscapeClosesTheMenuAndKeepsTheChoice) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.Press({"Tab", "space", "Down", "Escape"});
  EXPECT_EQUAL_OBJECTS(@"Medium", [panel[@"popUpSize"] titleOfSelectedItem]);
  EXPECT_TRUE([panel.window() isVisible]);
}

OBJC_TEST(PopUp, TheMouseChoosesAnItem) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  NSPopUpButton *popUp = panel[@"popUpColor"];
  panel.Drag(popUp, [popUp bounds], ItemBelow(popUp, 1));
  EXPECT_EQUAL_OBJECTS(@"Red", [panel.SavedSettings() objectForKey:@"VQBNColor"]);
}

OBJC_TEST(PopUp, AClickOpensTheMenuAndASecondOneChooses) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  NSPopUpButton *popUp = panel[@"popUpColor"];
  panel.Click(popUp);
  ASSERT_TRUE([MenuWindow(popUp) isVisible]);
  panel.Click(popUp, ItemBelow(popUp, 2));
  EXPECT_FALSE([MenuWindow(popUp) isVisible]);
  EXPECT_EQUAL_OBJECTS(@"Green", [panel.SavedSettings() objectForKey:@"VQBNColor"]);
}

OBJC_TEST(PopUp, AClickIsAClickHoweverLongItTakesToHandle) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  NSPopUpButton *popUp = panel[@"popUpColor"];
  [[[[SlowTracking alloc] init] autorelease] begin];
  panel.Click(popUp);
  EXPECT_TRUE([MenuWindow(popUp) isVisible]);
  panel.Press({"Escape"});
}

OBJC_TEST(PopUp, AClickElsewhereClosesTheMenuAndChangesNothing) {
  PanelOnScreen panel(NumberingFrom(@"77"));
  NSPopUpButton *popUp = panel[@"popUpSize"];
  panel.Click(popUp);
  ASSERT_TRUE([MenuWindow(popUp) isVisible]);
  panel.Click(panel[@"defaultButton"]);
  EXPECT_FALSE([MenuWindow(popUp) isVisible]);
  EXPECT_EQUAL_OBJECTS(@"Medium", [panel.SavedSettings() objectForKey:@"VQBNSize"]);
  EXPECT_EQUAL_OBJECTS(@"77", panel.StartNumber()) << "the click was the menu's";
}

OBJC_TEST(PopUp, AClickOnAGreyOneOpensNothing) {
  PanelOnScreen panel;
  panel.Click(panel[@"popUpSize"]);
  EXPECT_FALSE([MenuWindow(panel[@"popUpSize"]) isVisible]);
}

OBJC_TEST(PopUp, AClickChoosesAnItemAboveTheButtonToo) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  NSPopUpButton *popUp = panel[@"popUpSize"];
  panel.Click(popUp);
  ASSERT_TRUE([MenuWindow(popUp) isVisible]);
  panel.Click(popUp, ItemBelow(popUp, -0.8));
  EXPECT_FALSE([MenuWindow(popUp) isVisible]);
  EXPECT_EQUAL_OBJECTS(@"Small", [panel.SavedSettings() objectForKey:@"VQBNSize"]);
}

OBJC_TEST(PopUp, KeysGoOnFromTheSelectedItemAfterAClick) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.Click(panel[@"popUpSize"]);
  panel.Press({"Down", "Return"});
  EXPECT_EQUAL_OBJECTS(@"Large", [panel.SavedSettings() objectForKey:@"VQBNSize"]);
  EXPECT_TRUE([panel.window() isVisible]);
}
