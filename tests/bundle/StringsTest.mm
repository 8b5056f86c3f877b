#import "tests/bundle/BuiltBundle.h"
#import "tests/support/ObjCTest.h"

namespace {

NSDictionary *SettingInfo() {
  return [NSDictionary
      dictionaryWithContentsOfFile:[BuiltBundle()
                                       pathForResource:@"BackgroundNumberingRV2-SettingInfo"
                                                ofType:@"plist"]];
}

// Every key that the panel looks up.
NSSet *LookedUpKeys() {
  NSMutableSet *keys = [NSMutableSet
      setWithObjects:@"BackgroundNumbering", @"EnableFunction", @"On", @"Off", @"Size", @"Density",
                     @"Color", @"StartNumber", @"RestoreDefaults", @"IntegerValueRangeFormat", nil];
  NSDictionary *items = [SettingInfo() objectForKey:@"PopUpItem"];
  for (NSString *menu in items) {
    NSString *prefix = [[SettingInfo() objectForKey:@"Wording"]
        objectForKey:[@"PrefixFor" stringByAppendingString:menu]];
    for (NSString *item in [items objectForKey:menu]) {
      [keys addObject:[prefix stringByAppendingString:item]];
    }
  }
  return keys;
}

NSDictionary *EnglishStrings() {
  NSString *path = [BuiltBundle() pathForResource:@"Localizable"
                                           ofType:@"strings"
                                      inDirectory:nil
                                  forLocalization:@"en"];
  return [[NSString stringWithContentsOfFile:path encoding:NSUnicodeStringEncoding
                                       error:nullptr] propertyListFromStringsFileFormat];
}

}  // namespace

OBJC_TEST(Strings, EnglishHasEveryKeyThatIsLookedUpAndNoOther) {
  EXPECT_EQUAL_OBJECTS(LookedUpKeys(), [NSSet setWithArray:[EnglishStrings() allKeys]]);
}

OBJC_TEST(Strings, NoTextIsEmptyOrHasStrayBlanks) {
  NSCharacterSet *blanks = [NSCharacterSet whitespaceAndNewlineCharacterSet];
  for (NSString *text in [EnglishStrings() allValues]) {
    EXPECT_NE(0u, [text length]);
    EXPECT_EQUAL_OBJECTS([text stringByTrimmingCharactersInSet:blanks], text);
  }
}

OBJC_TEST(Strings, TheRangeCaptionHasBothPlaceholdersOnce) {
  NSString *format = [EnglishStrings() objectForKey:@"IntegerValueRangeFormat"];
  NSDictionary *wording = [SettingInfo() objectForKey:@"Wording"];
  for (NSString *name in @[ @"MinLabelForValueRange", @"MaxLabelForValueRange" ]) {
    NSString *placeholder = [wording objectForKey:name];
    EXPECT_EQ(2u, [[format componentsSeparatedByString:placeholder] count]) << [name UTF8String];
  }
}

// Two equal titles would merge into one menu item.
OBJC_TEST(Strings, TitlesWithinAMenuDiffer) {
  NSDictionary *items = [SettingInfo() objectForKey:@"PopUpItem"];
  for (NSString *menu in items) {
    NSString *prefix = [[SettingInfo() objectForKey:@"Wording"]
        objectForKey:[@"PrefixFor" stringByAppendingString:menu]];
    NSMutableSet *titles = [NSMutableSet set];
    for (NSString *item in [items objectForKey:menu]) {
      [titles addObject:[EnglishStrings() objectForKey:[prefix stringByAppendingString:item]]];
    }
    EXPECT_EQ([[items objectForKey:menu] count], [titles count]) << [menu UTF8String];
  }
}
