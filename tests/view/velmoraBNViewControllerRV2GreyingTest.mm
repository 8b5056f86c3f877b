// What the check box grays and enables, and what the button restores.

#import "view/velmoraBNViewControllerRV2+Input.h"

#include <objc/runtime.h>

#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

namespace {

NSMutableArray *switched = nil;  // controls, each followed by the number that it got

}  // namespace

// Classes that stand in for the loaded controls' own: they note what reaches a control and do it.
#define RECORDING_CLASS(name, base)                   \
  @interface name : base                              \
  @end                                                \
  @implementation name                                \
  -(void)changeState : (NSNumber *)active {           \
    [switched addObjectsFromArray:@[ self, active ]]; \
    [super changeState:active];                       \
  }                                                   \
  @end

RECORDING_CLASS(RecordingCheckBox, velmoraBNCheckBoxRV2)
RECORDING_CLASS(RecordingPopUpButton, velmoraBNPopUpButtonRV2)
RECORDING_CLASS(RecordingButton, velmoraBNButtonRV2)
RECORDING_CLASS(RecordingStepper, velmoraBNStepperRV2)
RECORDING_CLASS(RecordingTextLabel, velmoraBNTextLabelRV2)
RECORDING_CLASS(SwitchRecordingTextBox, velmoraBNTextBoxRV2)

namespace {

void RecordSwitching(velmoraBNViewControllerRV2 *controller) {
  for (id label in Labels(controller)) object_setClass(label, [RecordingTextLabel class]);
  for (id popUp in PopUps(controller)) object_setClass(popUp, [RecordingPopUpButton class]);
  object_setClass(controller.textBoxStartNumber, [SwitchRecordingTextBox class]);
  object_setClass(controller.stepperStartNumber, [RecordingStepper class]);
  object_setClass(controller.functionValid, [RecordingCheckBox class]);
  object_setClass(controller.defaultButton, [RecordingButton class]);
  switched = [NSMutableArray array];
}

// What greying should have noted when the first eight controls got one number and each menu
// another.
NSArray *Switching(velmoraBNViewControllerRV2 *controller, BOOL others, BOOL size, BOOL density,
                   BOOL color) {
  NSMutableArray *expected = [NSMutableArray array];
  NSArray *first =
      @[ controller.textBoxStartNumber, controller.stepperStartNumber, controller.defaultButton ];
  for (id control in [first arrayByAddingObjectsFromArray:Labels(controller)]) {
    [expected addObjectsFromArray:@[ control, [NSNumber numberWithBool:others] ]];
  }
  [expected addObjectsFromArray:@[
    controller.popUpSize, [NSNumber numberWithBool:size], controller.popUpDensity,
    [NSNumber numberWithBool:density], controller.popUpColor, [NSNumber numberWithBool:color]
  ]];
  return expected;
}

void ExpectActive(velmoraBNViewControllerRV2 *controller, BOOL active) {
  EXPECT_EQ(active, [controller.textBoxStartNumber isEnabled]);
  EXPECT_EQ(active, [controller.stepperStartNumber isEnabled]);
  EXPECT_EQ(active, [controller.defaultButton isEnabled]);
  for (NSPopUpButton *popUp in PopUps(controller)) EXPECT_EQ(active, [popUp isEnabled]);
  for (NSTextField *label in Labels(controller)) {
    EXPECT_EQUAL_OBJECTS(active ? [NSColor blackColor] : [NSColor lightGrayColor],
                         [label textColor]);
  }
  EXPECT_TRUE([controller.functionValid isEnabled]);
}

void SetState(velmoraBNViewControllerRV2 *controller, NSInteger state) {
  [controller.functionValid setAllowsMixedState:YES];
  [controller.functionValid setState:state];
}

}  // namespace

OBJC_TEST(UpdateView, DoesNothingBeforeTheViewIsSetUp) {
  TestPanel panel;
  EXPECT_EQUAL_OBJECTS(@"", NameOfRaised([&] { [panel.controller() updateView]; }));
  velmoraBNViewControllerRV2 *controller = panel.Load();
  controller.viewIsInited = NO;
  SetState(controller, 0);
  RecordSwitching(controller);
  [controller updateView];
  EXPECT_EQUAL_OBJECTS((@[]), switched);
  controller.viewIsInited = YES;  // or its subscription would outlive it
}

OBJC_TEST(UpdateView, GreysOrEnables) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 0);
  [controller updateView];
  ExpectActive(controller, NO);
  SetState(controller, 1);
  [controller updateView];
  ExpectActive(controller, YES);
}

OBJC_TEST(GreyView, SwitchesEightControlsAndThenTheMenusInOrder) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 1);
  RecordSwitching(controller);
  [controller BNVCGreyView];
  EXPECT_EQUAL_OBJECTS(Switching(controller, YES, YES, YES, YES), switched);
}

OBJC_TEST(GreyView, NeverTouchesTheCheckBox) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  for (NSInteger state : {0, 1}) {
    SetState(controller, state);
    RecordSwitching(controller);
    [controller BNVCGreyView];
    EXPECT_FALSE([switched containsObject:controller.functionValid]);
    EXPECT_TRUE([controller.functionValid isEnabled]);
    EXPECT_EQ(state, [controller.functionValid state]);
  }
}

OBJC_TEST(GreyView, TakesTheMixedStateForOff) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 1);
  [controller BNVCGreyView];
  SetState(controller, -1);
  ASSERT_EQ(-1, [controller.functionValid state]);
  [controller BNVCGreyView];
  ExpectActive(controller, NO);
}

OBJC_TEST(GreyView, KeepsAMenuWithFewerThanTwoItemsDisabled) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 1);
  [controller.popUpSize removeAllItems];
  while ([controller.popUpDensity numberOfItems] > 1) [controller.popUpDensity removeItemAtIndex:0];
  while ([controller.popUpColor numberOfItems] > 2) [controller.popUpColor removeItemAtIndex:0];
  RecordSwitching(controller);
  [controller BNVCGreyView];
  EXPECT_EQUAL_OBJECTS(Switching(controller, YES, NO, NO, YES), switched);
}

OBJC_TEST(GreyView, KeepsTheColorsOfAPrinterWithoutColorDisabled) {
  TestPanel panel({.ppd_lines = kMonoDevice});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 1);
  [controller changeFunctionValid:controller.functionValid];
  EXPECT_FALSE([controller.popUpColor isEnabled]);
  EXPECT_TRUE([controller.popUpSize isEnabled]);
  EXPECT_TRUE([controller.popUpDensity isEnabled]);
  EXPECT_TRUE([controller.textBoxStartNumber isEnabled]);
}

OBJC_TEST(CheckBoxAction, GreysAndEnablesWithoutStoringAnything) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  RecordTicketManager(controller);
  interposed::Clear();
  for (int state : {0, 1, 0}) {
    SetState(controller, state);
    [controller changeFunctionValid:nil];
    ExpectActive(controller, state == 1 ? YES : NO);
  }
  EXPECT_EQ(std::vector<std::string>(), interposed::Calls());
  EXPECT_EQ(std::vector<std::string>(), Events());
}

OBJC_TEST(CheckBoxAction, FollowsAClick) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.functionValid performClick:nil];
  ASSERT_EQ(1, [controller.functionValid state]);
  ExpectActive(controller, YES);
  [controller.functionValid performClick:nil];
  ExpectActive(controller, NO);
}

OBJC_TEST(RestoreDefaults, ShowsAllDefaultsButTheCheckBoxs) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 1);
  [controller.popUpSize selectItemAtIndex:0];
  [controller.popUpDensity selectItemAtIndex:0];
  [controller.popUpColor selectItemAtIndex:4];
  [controller.textBoxStartNumber setStringValue:@"50"];
  [controller.stepperStartNumber setIntegerValue:50];
  [controller restoreDefaults:nil];
  EXPECT_EQ(1, [controller.functionValid state]);
  EXPECT_EQUAL_OBJECTS(@"Size_Medium", [controller.popUpSize titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Density_Medium", [controller.popUpDensity titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Color_Black", [controller.popUpColor titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"1", [controller.textBoxStartNumber stringValue]);
  EXPECT_EQ(1, [controller.stepperStartNumber integerValue]);
}

OBJC_TEST(RestoreDefaults, LeavesTheEnabledStateAndTitlesAlone) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 1);
  [controller updateView];
  SetState(controller, 0);  // not grayed yet
  RecordSwitching(controller);
  [controller restoreDefaults:nil];
  EXPECT_EQUAL_OBJECTS((@[]), switched);
  ExpectActive(controller, YES);
  EXPECT_EQ(0, [controller.functionValid state]);
  EXPECT_EQUAL_OBJECTS(@"EnableFunction", [controller.functionValid title]);
}

OBJC_TEST(RestoreDefaults, LeavesThePrintSettingsUntilTheNextSave) {
  TestPanel panel({ .stored = @{@"VQBNSize" : @"Large", @"VQStartNumber" : @"50"} });
  velmoraBNViewControllerRV2 *controller = panel.Load();
  RecordTicketManager(controller);
  interposed::Clear();
  [controller restoreDefaults:nil];
  EXPECT_EQ((std::vector<std::string>{"defaults"}), Events());
  EXPECT_EQ(std::vector<std::string>(), interposed::Calls("set "));
  [controller saveNonPPDSettingsToPrintSettings];
  EXPECT_EQUAL_OBJECTS(@"Medium", [panel.host() valueForSetting:@"VQBNSize"]);
  EXPECT_EQUAL_OBJECTS(@"1", [panel.host() valueForSetting:@"VQStartNumber"]);
}

OBJC_TEST(RestoreDefaults, FollowsAClick) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  SetState(controller, 1);
  [controller updateView];
  [controller.textBoxStartNumber setStringValue:@"50"];
  [controller.defaultButton performClick:nil];
  EXPECT_EQUAL_OBJECTS(@"1", [controller.textBoxStartNumber stringValue]);
}
