#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

namespace {

NSString *Saved(PanelOnScreen &panel) {
  return [panel.SavedSettings() objectForKey:@"VQStartNumber"];
}

}  // namespace

OBJC_TEST(Stepper, FollowsTyping) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("57");
  EXPECT_EQ(57, [panel[@"stepperStartNumber"] integerValue]);
}

OBJC_TEST(Stepper, AClickOnTheUpperArrowAddsOneAndTheBoxShowsWhatIsSaved) {
  PanelOnScreen panel(NumberingFrom(@"41"));
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Click(stepper, UpperHalf(stepper));
  EXPECT_EQUAL_OBJECTS(@"42", panel.StartNumber());
  EXPECT_EQUAL_OBJECTS(@"42", Saved(panel));
}

OBJC_TEST(Stepper, AClickOnTheLowerArrowTakesOneAway) {
  PanelOnScreen panel(NumberingFrom(@"41"));
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Click(stepper, LowerHalf(stepper));
  EXPECT_EQUAL_OBJECTS(@"40", panel.StartNumber());
  EXPECT_EQUAL_OBJECTS(@"40", Saved(panel));
}

OBJC_TEST(Stepper, GoesOnFromTheNumberThatWasTyped) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("57");
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Click(stepper, UpperHalf(stepper));
  EXPECT_EQUAL_OBJECTS(@"58", panel.StartNumber());
  EXPECT_EQUAL_OBJECTS(@"58", Saved(panel));
}

OBJC_TEST(Stepper, TypingGoesOnAfterAClick) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Click(stepper, UpperHalf(stepper));
  panel.Click(panel[@"textBoxStartNumber"]);
  panel.Press({"End"});
  panel.Type("5");
  EXPECT_EQUAL_OBJECTS(@"25", panel.StartNumber());
  EXPECT_EQ(25, [panel[@"stepperStartNumber"] integerValue]);
}

OBJC_TEST(Stepper, StopsAtTheMaximum) {
  PanelOnScreen panel(NumberingFrom(@"999"));
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Click(stepper, UpperHalf(stepper));
  EXPECT_EQUAL_OBJECTS(@"999", panel.StartNumber());
}

OBJC_TEST(Stepper, StopsAtTheMinimum) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Click(stepper, LowerHalf(stepper));
  EXPECT_EQUAL_OBJECTS(@"1", panel.StartNumber());
}

OBJC_TEST(Stepper, RepeatsWhileTheMouseIsHeld) {
  PanelOnScreen panel(NumberingFrom(@"10"));
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Hold(stepper, UpperHalf(stepper), 1.5);
  EXPECT_GT([panel.StartNumber() integerValue], 12);
  EXPECT_EQ([panel.StartNumber() integerValue], [panel[@"stepperStartNumber"] integerValue]);
}

OBJC_TEST(Stepper, DoesNothingWhileNumberingIsOff) {
  PanelOnScreen panel(@{@"VQBackgroundNumbering" : @"Off", @"VQStartNumber" : @"41"});
  NSView *stepper = panel[@"stepperStartNumber"];
  panel.Click(stepper, UpperHalf(stepper));
  EXPECT_EQUAL_OBJECTS(@"41", panel.StartNumber());
}
