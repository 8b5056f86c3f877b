#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

namespace {

void ExpectEnabled(const PanelOnScreen &panel, BOOL enabled) {
  for (NSString *outlet in @[
         @"popUpSize", @"popUpDensity", @"popUpColor", @"textBoxStartNumber", @"stepperStartNumber",
         @"defaultButton"
       ]) {
    EXPECT_EQ(enabled, [panel[outlet] isEnabled]) << [outlet UTF8String];
  }
  NSColor *color = enabled ? [NSColor blackColor] : [NSColor lightGrayColor];
  for (NSString *outlet in @[
         @"labelSize", @"labelDensity", @"labelColor", @"labelStartNumber", @"labelStartNumberRange"
       ]) {
    EXPECT_EQUAL_OBJECTS(color, [panel[outlet] textColor]);
  }
  EXPECT_TRUE([panel[@"functionValid"] isEnabled]);
}

}  // namespace

OBJC_TEST(CheckBox, AClickSwitchesOnAndEnables) {
  PanelOnScreen panel;
  ExpectEnabled(panel, NO);
  panel.Click(panel[@"functionValid"]);
  EXPECT_EQ(NSControlStateValueOn, [panel[@"functionValid"] state]);
  ExpectEnabled(panel, YES);
  EXPECT_EQUAL_OBJECTS(@"On", [panel.SavedSettings() objectForKey:@"VQBackgroundNumbering"]);
}

OBJC_TEST(CheckBox, ASecondClickSwitchesOffAndGreys) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  ExpectEnabled(panel, YES);
  panel.Click(panel[@"functionValid"]);
  ExpectEnabled(panel, NO);
  EXPECT_EQUAL_OBJECTS(@"Off", [panel.SavedSettings() objectForKey:@"VQBackgroundNumbering"]);
}

OBJC_TEST(CheckBox, LeavesTheColorsOfAMonochromePrinterGrey) {
  PanelOnScreen panel(nil, PanelOnScreen::kMonoPrinter);
  panel.Click(panel[@"functionValid"]);
  EXPECT_FALSE([panel[@"popUpColor"] isEnabled]);
  EXPECT_TRUE([panel[@"popUpSize"] isEnabled]);
}
