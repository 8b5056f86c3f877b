// Whoever replaces a published operation of the view controller, or of what it works with, changes
// what goes through it.

#include <string>
#include <vector>

#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

/// Takes vowels for digits.
@interface VowelController : velmoraBNViewControllerRV2
@end

@implementation VowelController

- (BOOL)BNVCIsDigitChar:(NSString *)character {
  Events().push_back([character UTF8String]);
  return [@"aeiou" rangeOfString:character].location != NSNotFound;
}

@end

/// Reads every text as 12.
@interface TwelveController : velmoraBNViewControllerRV2
@end

@implementation TwelveController

- (NSString *)BNVCDigitString:(NSString *)string {
  Events().push_back(std::string("digits of ") + [string UTF8String]);
  return @"12";
}

@end

@interface GreyCountingController : velmoraBNViewControllerRV2
@end

@implementation GreyCountingController

- (void)BNVCGreyView {
  Events().push_back("gray");
}

@end

/// Keeps its range to itself.
@interface SevenTextBox : velmoraBNTextBoxRV2
@end

@implementation SevenTextBox

- (NSNumber *)verifyValue:(NSNumber *)value {
  return [NSNumber numberWithInteger:[value integerValue] * 7];
}

@end

/// Translates everything into itself in angle brackets, and notes which bounds it is asked for.
@interface BracketingCommonInfo : velmoraBNCommonInfoRV2
@end

@implementation BracketingCommonInfo

- (NSString *)localizedString:(NSString *)key {
  return [NSString stringWithFormat:@"<%@>", key];
}

- (id)startNumberMin {
  Events().push_back("min");
  return [super startNumberMin];
}

- (id)startNumberMax {
  Events().push_back("max");
  return [super startNumberMax];
}

@end

/// Notes in which order the start number's controls and bounds are taken.
@interface OutletNotingController : velmoraBNViewControllerRV2
@end

@implementation OutletNotingController

- (velmoraBNTextBoxRV2 *)textBoxStartNumber {
  Events().push_back("text box");
  return [super textBoxStartNumber];
}

- (velmoraBNStepperRV2 *)stepperStartNumber {
  Events().push_back("stepper");
  return [super stepperStartNumber];
}

@end

/// A text that loses its last character whenever its second is read, and notes what is taken of it.
@interface ShrinkingString : NSString {
 @public
  NSUInteger length;
}
@end

@implementation ShrinkingString

- (NSUInteger)length {
  return length;
}

- (unichar)characterAtIndex:(NSUInteger)index {
  return static_cast<unichar>(u'1' + index);
}

- (NSString *)substringWithRange:(NSRange)range {
  Events().push_back(std::to_string(range.location) + "+" + std::to_string(range.length));
  if (range.location == 1) --length;
  return [NSString stringWithFormat:@"%lu", static_cast<unsigned long>(range.location + 1)];
}

@end

using Strings = std::vector<std::string>;

OBJC_TEST(InputOverrides, EachCharacterIsTestedByIsDigitChar) {
  TestPanel panel({.controller_class = [VowelController class]});
  Events().clear();
  EXPECT_EQUAL_OBJECTS(@"aie", [panel.controller() BNVCDigitString:@"a1ixe"]);
  EXPECT_EQ((Strings{"a", "1", "i", "x", "e"}), Events());
}

OBJC_TEST(InputOverrides, CharactersAreTakenOneByOneWhileTheTextHasSome) {
  TestPanel panel;
  ShrinkingString *text = [[[ShrinkingString alloc] init] autorelease];
  text->length = 4;
  Events().clear();
  EXPECT_EQUAL_OBJECTS(@"123", [panel.controller() BNVCDigitString:text]);
  EXPECT_EQ((Strings{"0+1", "1+1", "2+1"}), Events());
}

OBJC_TEST(InputOverrides, TypedTextIsReadByDigitString) {
  TestPanel panel({.controller_class = [TwelveController class]});
  panel.Load();
  Events().clear();
  panel.Type(@"345");
  EXPECT_EQUAL_OBJECTS(@"12", [panel.controller().textBoxStartNumber stringValue]);
  EXPECT_EQ((Strings{"digits of 345"}), Events());
}

OBJC_TEST(InputOverrides, TypedNumbersAreLimitedByTheTextBox) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  object_setClass(controller.textBoxStartNumber, [SevenTextBox class]);
  RecordTicketManager(controller);
  panel.Type(@"6");
  EXPECT_EQUAL_OBJECTS(@"42", [controller.textBoxStartNumber stringValue]);
  EXPECT_EQ((Strings{"change StartNumber to 42"}), Events());
}

OBJC_TEST(InputOverrides, ThePanelAndTheCheckBoxGreyByGreyView) {
  TestPanel panel({.controller_class = [GreyCountingController class]});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  Events().clear();
  [controller updateView];
  [controller changeFunctionValid:controller.functionValid];
  EXPECT_EQ((Strings{"gray", "gray"}), Events());
}

OBJC_TEST(SetUpOverrides, EveryTextIsTheCommonInfosTranslation) {
  TestPanel panel({.info_class = [BracketingCommonInfo class]});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS(@"<Size>:", [controller.labelSize stringValue]);
  EXPECT_EQUAL_OBJECTS(@"<IntegerValueRangeFormat>",
                       [controller.labelStartNumberRange stringValue]);
  EXPECT_EQUAL_OBJECTS(@"<EnableFunction>", [controller.functionValid title]);
  EXPECT_EQUAL_OBJECTS(@"<RestoreDefaults>", [controller.defaultButton title]);
  EXPECT_EQUAL_OBJECTS(@"<Color_Black>", [[controller.popUpColor itemAtIndex:0] title]);
  NSDictionary *summary = [controller summaryInfoWithDispOrderKey:@"Order"];
  EXPECT_EQUAL_OBJECTS(@{@"<EnableFunction>" : @"<Off>"}, summary);
}

OBJC_TEST(SetUpOverrides, ControlsOfTheStartNumberAreTakenBeforeItsBoundsAndEachOnce) {
  TestPanel panel({.controller_class = [OutletNotingController class],
                   .info_class = [BracketingCommonInfo class]});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  Events().clear();
  [controller BNVCInitializeNumberValue];
  EXPECT_EQ((Strings{"text box", "stepper", "min", "max"}), Events());
}
