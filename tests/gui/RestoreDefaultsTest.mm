#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

OBJC_TEST(RestoreDefaults, AClickResetsAllButTheSwitch) {
  PanelOnScreen panel(@{
    @"VQBackgroundNumbering" : @"On",
    @"VQBNSize" : @"Large",
    @"VQBNDensity" : @"Dark",
    @"VQBNColor" : @"Red",
    @"VQStartNumber" : @"77",
  });
  panel.Click(panel[@"defaultButton"]);
  NSDictionary *expected = @{
    @"VQBackgroundNumbering" : @"On",
    @"VQBNSize" : @"Medium",
    @"VQBNDensity" : @"Medium",
    @"VQBNColor" : @"Black",
    @"VQStartNumber" : @"1",
  };
  EXPECT_EQUAL_OBJECTS(expected, panel.SavedSettings());
  EXPECT_TRUE([panel[@"popUpSize"] isEnabled]);
}

OBJC_TEST(RestoreDefaults, ResetsANumberThatIsStillEdited) {
  PanelOnScreen panel(NumberingFrom(@"77"));
  panel.FocusStartNumber();
  panel.Type("88");
  panel.Click(panel[@"defaultButton"]);
  EXPECT_EQUAL_OBJECTS(@"1", panel.StartNumber());
  EXPECT_EQ(1, [panel[@"stepperStartNumber"] integerValue]);
}
