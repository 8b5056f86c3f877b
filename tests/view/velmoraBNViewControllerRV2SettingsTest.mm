#include <string>
#include <vector>

#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

namespace {

NSDictionary *Stored() {
  return @{
    @"VQBackgroundNumbering" : @"On",
    @"VQBNSize" : @"Large",
    @"VQBNDensity" : @"Dark",
    @"VQBNColor" : @"Red",
    @"VQStartNumber" : @"57"
  };
}

void ExpectAllYes(velmoraBNViewControllerRV2 *controller) {
  EXPECT_EQ(YES, [controller restoreNonPPDSettingsFromPrintSettings]);
  EXPECT_EQ(YES, [controller saveNonPPDSettingsToPrintSettings]);
  EXPECT_EQ(YES, [controller verifyNonPPDSettingsFromPrintSettings]);
}

}  // namespace

OBJC_TEST(Restore, ShowsThePrintSettingsInTheControls) {
  TestPanel panel({.stored = Stored()});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQ(YES, [controller restoreNonPPDSettingsFromPrintSettings]);
  EXPECT_EQ(1, [controller.functionValid state]);
  EXPECT_EQUAL_OBJECTS(@"Size_Large", [controller.popUpSize titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Density_Dark", [controller.popUpDensity titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Color_Red", [controller.popUpColor titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"57", [controller.textBoxStartNumber stringValue]);
  EXPECT_EQ(57, [controller.stepperStartNumber integerValue]);
  EXPECT_EQUAL_OBJECTS(Stored(), [panel.host() allSettings]);
}

OBJC_TEST(Restore, ShowsTheDefaultsWithoutPrintSettings) {
  TestPanel panel({.print_settings = false});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.functionValid setState:1];
  [controller restoreNonPPDSettingsFromPrintSettings];
  EXPECT_EQ(0, [controller.functionValid state]);
  EXPECT_EQUAL_OBJECTS(@"Size_Medium", [controller.popUpSize titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Density_Medium", [controller.popUpDensity titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Color_Black", [controller.popUpColor titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"1", [controller.textBoxStartNumber stringValue]);
}

OBJC_TEST(Save, WritesTheControlsInOrder) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.functionValid setState:1];
  [controller.popUpSize selectItemAtIndex:2];
  [controller.popUpDensity selectItemAtIndex:0];
  [controller.popUpColor selectItemAtIndex:3];
  [controller.textBoxStartNumber setStringValue:@"123"];
  interposed::Clear();
  EXPECT_EQ(YES, [controller saveNonPPDSettingsToPrintSettings]);
  EXPECT_EQ((std::vector<std::string>{"set VQBackgroundNumbering=On", "set VQBNSize=Large",
                                      "set VQBNDensity=Light", "set VQBNColor=Blue",
                                      "set VQStartNumber=123"}),
            interposed::Calls("set "));
}

OBJC_TEST(Save, TakesTheTextBoxNotTheStepper) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.textBoxStartNumber setStringValue:@"5"];
  [controller.stepperStartNumber setIntegerValue:8];
  [controller saveNonPPDSettingsToPrintSettings];
  EXPECT_EQUAL_OBJECTS(@"5", [panel.host() valueForSetting:@"VQStartNumber"]);
}

OBJC_TEST(RestoreAndSave, TouchNothingBeforeTheViewIsSetUp) {
  TestPanel panel({.stored = Stored()});
  RecordTicketManager(panel.controller());
  interposed::Clear();
  EXPECT_EQ(YES, [panel.controller() restoreNonPPDSettingsFromPrintSettings]);
  EXPECT_EQ(YES, [panel.controller() saveNonPPDSettingsToPrintSettings]);
  EXPECT_EQ(std::vector<std::string>(), Events());
  EXPECT_EQ(std::vector<std::string>(), interposed::Calls());
}

OBJC_TEST(RestoreAndSave, GoByTheFlagNotByTheView) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  controller.viewIsInited = NO;
  RecordTicketManager(controller);
  [controller restoreNonPPDSettingsFromPrintSettings];
  [controller saveNonPPDSettingsToPrintSettings];
  EXPECT_EQ(std::vector<std::string>(), Events());
  controller.viewIsInited = YES;
  [controller restoreNonPPDSettingsFromPrintSettings];
  [controller saveNonPPDSettingsToPrintSettings];
  EXPECT_EQ((std::vector<std::string>{"restore all", "save all"}), Events());
}

OBJC_TEST(Verify, CorrectsTheColorBeforeAndAfterSetUp) {
  TestPanel panel({.ppd_lines = kMonoDevice, .stored = Stored()});
  for (int time = 0; time < 2; ++time) {
    [panel.host() setValue:@"Red" forSetting:@"VQBNColor"];
    EXPECT_EQ(YES, [panel.controller() verifyNonPPDSettingsFromPrintSettings]);
    EXPECT_EQUAL_OBJECTS(@"Black", [panel.host() valueForSetting:@"VQBNColor"]);
    panel.Load();
  }
  EXPECT_EQUAL_OBJECTS(@"Large", [panel.host() valueForSetting:@"VQBNSize"]);
}

OBJC_TEST(Verify, ChangesNothingOnAColorPrinter) {
  TestPanel panel({.stored = Stored()});
  EXPECT_EQ(YES, [panel.controller() verifyNonPPDSettingsFromPrintSettings]);
  EXPECT_EQUAL_OBJECTS(Stored(), [panel.host() allSettings]);
}

OBJC_TEST(Settings, AnswerYesWithoutPrintSettings) {
  TestPanel panel({.print_settings = false});
  ExpectAllYes(panel.controller());
  ExpectAllYes(panel.Load());
}

OBJC_TEST(Settings, AnswerYesWhenReadingAndWritingFail) {
  TestPanel panel({.stored = Stored()});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  interposed::FailReads(-1);
  interposed::FailWrites(-1);
  ExpectAllYes(controller);
  interposed::FailReads(0);
  interposed::FailWrites(0);
  EXPECT_EQUAL_OBJECTS(@"Size_Medium", [controller.popUpSize titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(Stored(), [panel.host() allSettings]);
}

OBJC_TEST(Settings, AnswerYesWithValuesThatNoControlHas) {
  TestPanel panel({
    .stored = @{@"VQBackgroundNumbering" : @"maybe", @"VQBNSize" : @"Huge", @"VQStartNumber" : @"x"}
  });
  ExpectAllYes(panel.Load());
}
