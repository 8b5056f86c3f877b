#import "view/velmoraBNViewControllerRV2+Input.h"

#include <objc/runtime.h>

#include <string>
#include <vector>

#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

namespace {

int texts_written = 0;

}  // namespace

@interface TextRecordingTextBox : velmoraBNTextBoxRV2
@end

@implementation TextRecordingTextBox

- (void)setStringValue:(NSString *)text {
  ++texts_written;
  [super setStringValue:text];
}

@end

namespace {

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
