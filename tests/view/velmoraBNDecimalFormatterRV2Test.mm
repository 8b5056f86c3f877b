#import "view/velmoraBNDecimalFormatterRV2.h"

#include <objc/runtime.h>

#include <cstdlib>

#import "tests/support/ObjCTest.h"

namespace {

velmoraBNDecimalFormatterRV2 *Formatter() {
  return [[[velmoraBNDecimalFormatterRV2 alloc] init] autorelease];
}

NSString *Text(id object) { return [Formatter() stringForObjectValue:object]; }

// The object for the text, once it has been seen that the answer is YES and no error is written.
id Object(NSString *text) {
  NSString *error = @"untouched";
  id object = @"never written";
  EXPECT_EQ(YES, [Formatter() getObjectValue:&object forString:text errorDescription:&error]);
  EXPECT_EQUAL_OBJECTS(@"untouched", error);
  return object;
}

}  // namespace

OBJC_TEST(DecimalFormatter, IsANumberFormatterWithoutFields) {
  EXPECT_EQUAL_OBJECTS([NSNumberFormatter class],
                       class_getSuperclass([velmoraBNDecimalFormatterRV2 class]));
  unsigned count = 0;
  free(class_copyIvarList([velmoraBNDecimalFormatterRV2 class], &count));
  EXPECT_EQ(0u, count);
}

OBJC_TEST(DecimalFormatter, WritesPlainDigits) {
  EXPECT_EQUAL_OBJECTS(@"42", Text(@42));
  EXPECT_EQUAL_OBJECTS(@"-7", Text(@-7));
  EXPECT_EQUAL_OBJECTS(@"0", Text(@0));
  EXPECT_EQUAL_OBJECTS(@"1000000", Text(@1000000));
}

OBJC_TEST(DecimalFormatter, WritesZeroForNil) { EXPECT_EQUAL_OBJECTS(@"0", Text(nil)); }

OBJC_TEST(DecimalFormatter, WritesTheWholeRangeOfIntegers) {
  EXPECT_EQUAL_OBJECTS(@"9223372036854775807", Text([NSNumber numberWithInteger:NSIntegerMax]));
  EXPECT_EQUAL_OBJECTS(@"-9223372036854775808", Text([NSNumber numberWithInteger:NSIntegerMin]));
}

OBJC_TEST(DecimalFormatter, WritesWhatAnObjectIsAsAnInteger) {
  EXPECT_EQUAL_OBJECTS(@"3", Text(@3.9));
  EXPECT_EQUAL_OBJECTS(@"12", Text(@"12abc"));
}

OBJC_TEST(DecimalFormatter, IgnoresInheritedSettings) {
  velmoraBNDecimalFormatterRV2 *formatter = Formatter();
  [formatter setNumberStyle:NSNumberFormatterCurrencyStyle];
  [formatter setFormat:@"#,##0.00"];
  [formatter setHasThousandSeparators:YES];
  [formatter setLocale:[[[NSLocale alloc] initWithLocaleIdentifier:@"ar_EG"] autorelease]];
  [formatter setMinimum:(id) @5];
  [formatter setMaximum:(id) @10];
  EXPECT_EQUAL_OBJECTS(@"1000000", [formatter stringForObjectValue:@1000000]);
  id object = nil;
  EXPECT_EQ(YES, [formatter getObjectValue:&object forString:@"1000000" errorDescription:nullptr]);
  EXPECT_EQUAL_OBJECTS(@1000000, object);
}

OBJC_TEST(DecimalFormatter, ReadsTheLeadingNumber) {
  EXPECT_EQUAL_OBJECTS(@12, Object(@"12abc"));
  EXPECT_EQUAL_OBJECTS(@-5, Object(@" -5"));
  EXPECT_EQUAL_OBJECTS(@7, Object(@"+7"));
  EXPECT_EQUAL_OBJECTS(@7, Object(@"007"));
  EXPECT_EQUAL_OBJECTS(@1, Object(@"1,000"));
  EXPECT_EQUAL_OBJECTS(@1000, Object(@"1000"));
}

OBJC_TEST(DecimalFormatter, ReadsZeroWithoutALeadingNumber) {
  EXPECT_EQUAL_OBJECTS(@0, Object(@"abc"));
  EXPECT_EQUAL_OBJECTS(@0, Object(@""));
  EXPECT_EQUAL_OBJECTS(@0, Object(@"-"));
  EXPECT_EQUAL_OBJECTS(@0, Object(nil));
}

OBJC_TEST(DecimalFormatter, SaturatesWhenReading) {
  EXPECT_EQUAL_OBJECTS([NSNumber numberWithInteger:NSIntegerMax], Object(@"99999999999999999999"));
  EXPECT_EQUAL_OBJECTS([NSNumber numberWithInteger:NSIntegerMin], Object(@"-99999999999999999999"));
}

OBJC_TEST(DecimalFormatter, AnswersANumberNotAString) {
  EXPECT_TRUE([Object(@"42") isKindOfClass:[NSNumber class]]);
}

OBJC_TEST(DecimalFormatter, ReadsATextWithoutAPlaceForTheObject) {
  EXPECT_EQ(YES, [Formatter() getObjectValue:nullptr forString:@"5" errorDescription:nullptr]);
}
