#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

OBJC_TEST(StartNumberTyping, DigitsInARowMakeANumber) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("123");
  EXPECT_EQUAL_OBJECTS(@"123", panel.StartNumber());
  EXPECT_EQUAL_OBJECTS(@"123", [panel.SavedSettings() objectForKey:@"VQStartNumber"]);
}

OBJC_TEST(StartNumberTyping, ALetterBeforeTheDigitsVanishesAndNoDigitIsLost) {
  PanelOnScreen panel(NumberingFrom(@"712"));
  panel.FocusStartNumber();
  panel.Press({"Home"});
  panel.Type("a");
  EXPECT_EQUAL_OBJECTS(@"712", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, ALetterInsideTheDigitsVanishes) {
  PanelOnScreen panel(NumberingFrom(@"7"));
  panel.FocusStartNumber();
  panel.Type("1x2");
  EXPECT_EQUAL_OBJECTS(@"12", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, ALetterAfterTheDigitsVanishes) {
  PanelOnScreen panel(NumberingFrom(@"712"));
  panel.FocusStartNumber();
  panel.Press({"End"});
  panel.Type("z");
  EXPECT_EQUAL_OBJECTS(@"712", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, LettersAndDigitsThatArePastedLeaveTheDigits) {
  PanelOnScreen panel(NumberingFrom(@"7"));
  panel.FocusStartNumber();
  panel.Paste("1ab2");
  EXPECT_EQUAL_OBJECTS(@"12", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, TooManyDigitsThatArePastedBecomeTheMaximum) {
  PanelOnScreen panel(NumberingFrom(@"5"));
  panel.FocusStartNumber();
  panel.Press({"End"});
  panel.Paste("12ab34");
  EXPECT_EQUAL_OBJECTS(@"999", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, ClearingTheBoxGivesTheMinimum) {
  PanelOnScreen panel(NumberingFrom(@"7"));
  panel.FocusStartNumber();
  panel.Press({"BackSpace"});
  EXPECT_EQUAL_OBJECTS(@"1", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, ANumberTypedAfterClearingReplacesTheMinimum) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Press({"End", "BackSpace"});
  panel.Type("25");
  EXPECT_EQUAL_OBJECTS(@"25", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, ZerosTypedBeforeTheDigitsVanish) {
  PanelOnScreen panel(NumberingFrom(@"712"));
  panel.FocusStartNumber();
  panel.Press({"Home"});
  panel.Type("00");
  EXPECT_EQUAL_OBJECTS(@"712", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, TheCaretStaysWhereDigitsAreInserted) {
  PanelOnScreen panel(NumberingFrom(@"9"));
  panel.FocusStartNumber();
  panel.Press({"Home"});
  panel.Type("1x2");
  EXPECT_EQUAL_OBJECTS(@"129", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, AMinusSignVanishes) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("-12");
  EXPECT_EQUAL_OBJECTS(@"12", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, LeadingZerosVanishAsTheyAreTyped) {
  PanelOnScreen panel(NumberingFrom(@"712"));
  panel.FocusStartNumber();
  panel.Type("0");
  EXPECT_EQUAL_OBJECTS(@"1", panel.StartNumber());
  panel.Type("05");
  EXPECT_EQUAL_OBJECTS(@"5", panel.StartNumber());
}

OBJC_TEST(StartNumberTyping, ANumberAboveTheMaximumBecomesTheMaximum) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("1000");
  EXPECT_EQUAL_OBJECTS(@"999", panel.StartNumber());
  EXPECT_EQ(999, [panel[@"stepperStartNumber"] integerValue]);
}

OBJC_TEST(StartNumberTyping, LeavingTheBoxKeepsTheNumber) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("42");
  panel.Press({"Tab"});
  EXPECT_EQUAL_OBJECTS(@"42", panel.StartNumber());
  EXPECT_EQUAL_OBJECTS(@"42", [panel.SavedSettings() objectForKey:@"VQStartNumber"]);
}

OBJC_TEST(StartNumberTyping, ANumberIsSavedWhileItIsStillEdited) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("3");
  ASSERT_NE(nil, [panel[@"textBoxStartNumber"] currentEditor]);
  EXPECT_EQUAL_OBJECTS(@"3", [panel.SavedSettings() objectForKey:@"VQStartNumber"]);
}
