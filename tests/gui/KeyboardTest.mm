#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

OBJC_TEST(Keyboard, TheCheckBoxHasTheFocusFirstAndSpaceSwitchesIt) {
  PanelOnScreen panel;
  EXPECT_EQUAL_OBJECTS(@"functionValid", panel.FocusedOutlet());
  panel.Press({"space"});
  EXPECT_EQ(NSControlStateValueOn, [panel[@"functionValid"] state]);
  EXPECT_TRUE([panel[@"popUpSize"] isEnabled]);
}

// A stepper takes no focus here: the number beside it can be typed.
OBJC_TEST(Keyboard, TabWalksTheControlsInOrder) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  NSArray *order = @[
    @"functionValid", @"popUpSize", @"popUpDensity", @"popUpColor", @"textBoxStartNumber",
    @"defaultButton"
  ];
  for (NSString *outlet in order) {
    EXPECT_EQUAL_OBJECTS(outlet, panel.FocusedOutlet());
    panel.Press({"Tab"});
  }
  PrintDialogView *dialog = panel.dialog().view();
  for (NSView *view : {(NSView *)[dialog help], (NSView *)[dialog cancel], (NSView *)[dialog print],
                       (NSView *)[dialog presets]}) {
    EXPECT_EQ(view, [panel.window() firstResponder]);
    panel.Press({"Tab"});
  }
  for (NSTextField *box : {[dialog copies], [dialog pages]}) {
    EXPECT_NE(nil, [box currentEditor]);
    EXPECT_EQ([box currentEditor], [panel.window() firstResponder]);
    panel.Press({"Tab"});
  }
  EXPECT_EQ([dialog panels], [panel.window() firstResponder]);
  panel.Press({"Tab"});
  EXPECT_EQUAL_OBJECTS(@"functionValid", panel.FocusedOutlet());
}

OBJC_TEST(Keyboard, ShiftTabWalksBack) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.Press({"Tab", "Tab", "shift+Tab"});
  EXPECT_EQUAL_OBJECTS(@"popUpSize", panel.FocusedOutlet());
}

OBJC_TEST(Keyboard, TabSkipsWhatIsGrey) {
  PanelOnScreen panel;
  panel.Press({"Tab"});
  EXPECT_EQ([panel.dialog().view() help], [panel.window() firstResponder]) << "past the panel";
}

OBJC_TEST(Keyboard, EditingKeysWorkInTheBox) {
  PanelOnScreen panel(NumberingFrom(@"712"));
  panel.FocusStartNumber();
  panel.Press({"End", "ctrl+a"});
  panel.Type("3");
  EXPECT_EQUAL_OBJECTS(@"3", panel.StartNumber());
}
