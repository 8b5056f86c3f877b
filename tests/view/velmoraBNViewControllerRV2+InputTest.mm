#import "view/velmoraBNViewControllerRV2+Input.h"

#include <objc/runtime.h>

#include <string>
#include <vector>

#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

namespace {

NSMutableArray *switched = nil;  // controls, each followed by the number that it got
int texts_written = 0;

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

@interface TextRecordingTextBox : velmoraBNTextBoxRV2
@end

@implementation TextRecordingTextBox

- (void)setStringValue:(NSString *)text {
  ++texts_written;
  [super setStringValue:text];
}

@end

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

NSString *Filtered(NSString *text) {
  TestPanel panel;
  return [panel.controller() BNVCDigitString:text];
}

BOOL IsDigit(NSString *text) {
  TestPanel panel;
  return [panel.controller() BNVCIsDigitChar:text];
}

// What the start-number box shows after this was typed.
NSString *Corrected(NSString *typed) {
  TestPanel panel;
  panel.Load();
  panel.Type(typed);
  return [[[panel.controller().textBoxStartNumber stringValue] copy] autorelease];
}

// A text of this length, every other character of it a digit.
NSString *DigitsAndLetters(NSUInteger length) {
  return [@"" stringByPaddingToLength:length withString:@"1a" startingAtIndex:0];
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
  SetState(controller, 0);  // not greyed yet
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

OBJC_TEST(StartNumber, LosesWhatIsNoDigitWhereverItStands) {
  TestPanel panel;
  velmoraBNTextBoxRV2 *textBox = panel.Load().textBoxStartNumber;
  [textBox setFormatter:nil];  // which reads only up to the first letter of a text not being edited
  for (NSString *typed in @[ @"1x2", @"x12", @"12x", @"-12", @"1 2", @"1.2", @"1,2" ]) {
    panel.Type(typed);
    EXPECT_EQUAL_OBJECTS(@"12", [textBox stringValue]) << [typed UTF8String];
  }
}

OBJC_TEST(StartNumber, LosesItsMinusSignBeforeItIsClamped) {
  EXPECT_EQUAL_OBJECTS(@"12", Corrected(@"-12"));
  EXPECT_EQUAL_OBJECTS(@"999", Corrected(@"-5000"));
}

OBJC_TEST(StartNumber, BecomesTheMinimumWhenCleared) {
  NSDictionary *info = SettingInfoWith(@"DefaultValue", @"StartNumberMin", @10);
  TestPanel panel({.setting_info = info});
  panel.Load();
  for (NSString *typed in @[ @"", @"x", @"0", @"9" ]) {
    panel.Type(typed);
    EXPECT_EQUAL_OBJECTS(@"10", [panel.controller().textBoxStartNumber stringValue]);
  }
}

OBJC_TEST(StartNumber, LosesLeadingZeros) { EXPECT_EQUAL_OBJECTS(@"7", Corrected(@"007")); }

OBJC_TEST(StartNumber, StaysAtABound) {
  EXPECT_EQUAL_OBJECTS(@"1", Corrected(@"1"));
  EXPECT_EQUAL_OBJECTS(@"999", Corrected(@"999"));
  EXPECT_EQUAL_OBJECTS(@"998", Corrected(@"998"));
}

OBJC_TEST(StartNumber, BecomesTheMaximumAboveIt) {
  TestPanel panel;
  RecordTicketManager(panel.Load());
  panel.Type(@"1000");
  EXPECT_EQUAL_OBJECTS(@"999", [panel.controller().textBoxStartNumber stringValue]);
  EXPECT_EQ((std::vector<std::string>{"change StartNumber to 999"}), Events());
  EXPECT_EQ(panel.controller().textBoxStartNumber.max, LastChangedValue());
}

OBJC_TEST(StartNumber, BecomesTheMaximumForMoreDigitsThanAnIntegerHas) {
  TestPanel panel;
  velmoraBNTextBoxRV2 *textBox = panel.Load().textBoxStartNumber;
  [textBox setFormatter:nil];
  for (NSUInteger length : std::vector<NSUInteger>{18, 19, 20, 64, 500}) {
    panel.Type([@"" stringByPaddingToLength:length withString:@"9" startingAtIndex:0]);
    EXPECT_EQUAL_OBJECTS(@"999", [textBox stringValue]) << length;
  }
  panel.Type(@"18446744073709551617");  // 1, were it to wrap around
  EXPECT_EQUAL_OBJECTS(@"999", [textBox stringValue]);
}

OBJC_TEST(StartNumber, SaturatesAtTheLargestIntegerWhereTheRangeAllowsIt) {
  TestPanel panel;
  velmoraBNTextBoxRV2 *textBox = panel.Load().textBoxStartNumber;
  [textBox setFormatter:nil];
  textBox.max = [NSNumber numberWithInteger:NSIntegerMax];
  panel.Type(@"99999999999999999999");
  EXPECT_EQUAL_OBJECTS(@"9223372036854775807", [textBox stringValue]);
}

OBJC_TEST(StartNumber, ReachesTheTicketsAsANumberOnEveryEdit) {
  TestPanel panel;
  RecordTicketManager(panel.Load());
  panel.Type(@"57");
  EXPECT_TRUE([LastChangedValue() isKindOfClass:[NSNumber class]]);
  EXPECT_EQUAL_OBJECTS(@57, LastChangedValue());
  panel.Type(@"57");
  panel.Type(@"0");
  EXPECT_EQ(panel.controller().textBoxStartNumber.min, LastChangedValue());
  EXPECT_EQ((std::vector<std::string>{"change StartNumber to 57", "change StartNumber to 57",
                                      "change StartNumber to 1"}),
            Events());
}

OBJC_TEST(StartNumber, IsWrittenBackEvenWhereItIsCorrect) {
  TestPanel panel;
  velmoraBNTextBoxRV2 *textBox = panel.Load().textBoxStartNumber;
  [textBox setIdentifier:@"another"];  // the ticket would write as well
  [textBox setStringValue:@"57"];
  object_setClass(textBox, [TextRecordingTextBox class]);
  texts_written = 0;
  [panel.controller()
      controlTextDidChange:[NSNotification notificationWithName:NSControlTextDidChangeNotification
                                                         object:textBox]];
  EXPECT_EQ(1, texts_written);
}

OBJC_TEST(StartNumber, IsFollowedByTheStepper) {
  TestPanel panel;
  velmoraBNStepperRV2 *stepper = panel.Load().stepperStartNumber;
  panel.Type(@"57");
  EXPECT_EQ(57, [stepper integerValue]);
  panel.Type(@"5000");
  EXPECT_EQ(999, [stepper integerValue]);
}

OBJC_TEST(StartNumber, LeavesThePrintSettingsUntilTheNextSave) {
  TestPanel panel;
  panel.Load();
  interposed::Clear();
  panel.Type(@"57");
  EXPECT_EQ(std::vector<std::string>(), interposed::Calls("set "));
  [panel.controller() saveNonPPDSettingsToPrintSettings];
  EXPECT_EQUAL_OBJECTS(@"57", [panel.host() valueForSetting:@"VQStartNumber"]);
}

OBJC_TEST(StartNumber, IsCorrectedButNotPassedOnFromABoxOfAnotherIdentifier) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  RecordTicketManager(controller);
  for (NSString *identifier in @[ @"startnumber", @"Size", @"" ]) {
    [controller.textBoxStartNumber setIdentifier:identifier];
    panel.Type(@"5000");
    EXPECT_EQUAL_OBJECTS(@"999", [controller.textBoxStartNumber stringValue]);
  }
  [controller.textBoxStartNumber setIdentifier:nil];
  panel.Type(@"0");
  EXPECT_EQUAL_OBJECTS(@"1", [controller.textBoxStartNumber stringValue]);
  EXPECT_EQ(std::vector<std::string>(), Events());
  EXPECT_NE(999, [controller.stepperStartNumber integerValue]);
}

OBJC_TEST(StartNumber, IsTakenFromTheNotificationsObject) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.textBoxStartNumber setStringValue:@"5"];
  velmoraBNTextBoxRV2 *other =
      [[[velmoraBNTextBoxRV2 alloc] initWithFrame:NSMakeRect(0, 0, 100, 25)] autorelease];
  [other setValueRange:@20 max:@30];
  [other setStringValue:@"3x9"];
  [controller
      controlTextDidChange:[NSNotification notificationWithName:NSControlTextDidChangeNotification
                                                         object:other]];
  EXPECT_EQUAL_OBJECTS(@"30", [other stringValue]);
  EXPECT_EQUAL_OBJECTS(@"5", [controller.textBoxStartNumber stringValue]);
}

OBJC_TEST(Subscription, HearsTheTextBoxAlone) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  RecordTicketManager(controller);
  NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
  for (id sender in @[
         controller.stepperStartNumber, controller.labelSize, controller.functionValid,
         controller.popUpSize
       ]) {
    [center postNotificationName:NSControlTextDidChangeNotification object:sender];
  }
  [center postNotificationName:NSControlTextDidChangeNotification object:nil];
  [center postNotificationName:NSControlTextDidEndEditingNotification
                        object:controller.textBoxStartNumber];
  EXPECT_EQ(std::vector<std::string>(), Events());
  [controller.textBoxStartNumber setStringValue:@"5"];
  [center postNotificationName:NSControlTextDidChangeNotification
                        object:controller.textBoxStartNumber];
  EXPECT_EQ((std::vector<std::string>{"change StartNumber to 5"}), Events());
}

OBJC_TEST(DigitString, KeepsTheDigitsInOrder) {
  EXPECT_EQUAL_OBJECTS(@"0123456789", Filtered(@"0123456789"));
  EXPECT_EQUAL_OBJECTS(@"9081", Filtered(@"a9 0-8.1\n"));
  EXPECT_EQUAL_OBJECTS(@"007", Filtered(@"007"));
}

OBJC_TEST(DigitString, IsEmptyWithoutDigits) {
  EXPECT_EQUAL_OBJECTS(@"", Filtered(nil));
  EXPECT_EQUAL_OBJECTS(@"", Filtered(@""));
  EXPECT_EQUAL_OBJECTS(@"", Filtered(@"abc :/+-.,"));
}

OBJC_TEST(DigitString, DropsTheDigitsOfOtherScripts) {
  EXPECT_EQUAL_OBJECTS(@"12", Filtered(@"1\uFF12\u0663\u096A2\u00B2\u2460"));
}

OBJC_TEST(DigitString, DropsBothHalvesOfASurrogatePair) {
  EXPECT_EQUAL_OBJECTS(@"12", Filtered(@"1\U0001F6002\U0001D7D9"));
}

OBJC_TEST(DigitString, DropsHalfASurrogatePair) {
  NSMutableString *text = [NSMutableString stringWithString:@"1\U0001F6002"];
  [text deleteCharactersInRange:NSMakeRange(1, 1)];
  ASSERT_EQ(3u, [text length]);
  EXPECT_EQUAL_OBJECTS(@"12", Filtered(text));
}

OBJC_TEST(DigitString, FiltersLongTexts) {
  NSString *ones = [@"" stringByPaddingToLength:100000 withString:@"1" startingAtIndex:0];
  EXPECT_EQUAL_OBJECTS(ones, Filtered(DigitsAndLetters(200000)));
}

OBJC_TEST(IsDigitChar, IsTrueForTheTenDigits) {
  for (unichar digit = '0'; digit <= '9'; ++digit) {
    EXPECT_EQ(YES, IsDigit([NSString stringWithCharacters:&digit length:1])) << digit;
  }
}

OBJC_TEST(IsDigitChar, IsFalseForEveryOtherCharacter) {
  TestPanel panel;
  int digits = 0;
  for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
    @autoreleasepool {
      auto character = static_cast<unichar>(unit);
      NSString *text = [NSString stringWithCharacters:&character length:1];
      if ([text length] != 1) continue;  // no string can be made of half a pair alone
      if ([panel.controller() BNVCIsDigitChar:text]) ++digits;
    }
  }
  EXPECT_EQ(10, digits);
}

OBJC_TEST(IsDigitChar, IsFalseForHalfASurrogatePair) {
  for (NSUInteger half : {0u, 1u}) {
    NSMutableString *text = [NSMutableString stringWithString:@"\U0001F600"];
    [text deleteCharactersInRange:NSMakeRange(half, 1)];
    ASSERT_EQ(1u, [text length]);
    EXPECT_EQ(NO, IsDigit(text));
  }
}

OBJC_TEST(IsDigitChar, LooksAtTheWholeString) {
  EXPECT_EQ(NO, IsDigit(@"1x"));
  EXPECT_EQ(NO, IsDigit(@" 1"));
}
