#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"

namespace {

NSDictionary *Section(NSString *name) {
  NSString *path = [BuiltBundle() pathForResource:@"BackgroundNumberingRV2-SettingInfo"
                                           ofType:@"plist"];
  return [[NSDictionary dictionaryWithContentsOfFile:path] objectForKey:name];
}

}  // namespace

// The stored values are job options as they stand, so keys and values are the printer's keywords.
OBJC_TEST(SettingInfo, PrintSettingsKeysAreTheOptionKeywordsOfThePrinter) {
  NSDictionary *expected = @{
    @"Valid" : @"VQBackgroundNumbering",
    @"Size" : @"VQBNSize",
    @"Density" : @"VQBNDensity",
    @"Color" : @"VQBNColor",
    @"StartNumber" : @"VQStartNumber",
  };
  EXPECT_EQUAL_OBJECTS(expected, Section(@"TicketKey"));
}

OBJC_TEST(SettingInfo, ItemsAreTheChoicesOfThePrinter) {
  NSDictionary *expected = @{
    @"Size" : @[ @"Small", @"Medium", @"Large" ],
    @"Density" : @[ @"Light", @"Medium", @"Dark" ],
    @"Color" : @[ @"Black", @"Red", @"Green", @"Blue", @"Cyan", @"Magenta", @"Yellow" ],
  };
  EXPECT_EQUAL_OBJECTS(expected, Section(@"PopUpItem"));
}

OBJC_TEST(SettingInfo, EveryDefaultIsOneOfItsItems) {
  for (NSString *name in Section(@"PopUpItem")) {
    EXPECT_TRUE([[Section(@"PopUpItem") objectForKey:name]
        containsObject:[Section(@"DefaultValue") objectForKey:name]])
        << [name UTF8String];
  }
}

OBJC_TEST(SettingInfo, NumberingIsOffAndStartsWithOneUnlessAskedFor) {
  EXPECT_EQUAL_OBJECTS(@"Off", [Section(@"DefaultValue") objectForKey:@"Valid"]);
  EXPECT_EQUAL_OBJECTS(@"1", [Section(@"DefaultValue") objectForKey:@"StartNumber"]);
}

OBJC_TEST(SettingInfo, RangeIsFromOneToThreeDigits) {
  EXPECT_EQUAL_OBJECTS([NSNumber numberWithInt:1],
                       [Section(@"DefaultValue") objectForKey:@"StartNumberMin"]);
  EXPECT_EQUAL_OBJECTS([NSNumber numberWithInt:999],
                       [Section(@"DefaultValue") objectForKey:@"StartNumberMax"]);
}
