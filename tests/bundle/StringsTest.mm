#import "tests/support/BuiltBundle.h"
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

NSDictionary *StringsOf(NSString *language) {
  NSString *path = [BuiltBundle() pathForResource:@"Localizable"
                                           ofType:@"strings"
                                      inDirectory:nil
                                  forLocalization:language];
  return [[NSString stringWithContentsOfFile:path encoding:NSUnicodeStringEncoding
                                       error:nullptr] propertyListFromStringsFileFormat];
}

}  // namespace

OBJC_TEST(Strings, ThereAreThirtyLanguages) {
  // Two have a second folder, under the name by which GNUstep asks for them.
  EXPECT_EQ(30u + 2u, [[BuiltBundle() localizations] count]);
}

OBJC_TEST(Strings, EveryLanguageHasEveryKeyThatIsLookedUpAndNoOther) {
  for (NSString *language in [BuiltBundle() localizations]) {
    SCOPED_TRACE([language UTF8String]);
    EXPECT_EQUAL_OBJECTS(LookedUpKeys(), [NSSet setWithArray:[StringsOf(language) allKeys]]);
  }
}

OBJC_TEST(Strings, NoTextIsEmptyOrHasStrayBlanks) {
  NSCharacterSet *blanks = [NSCharacterSet whitespaceAndNewlineCharacterSet];
  for (NSString *language in [BuiltBundle() localizations]) {
    SCOPED_TRACE([language UTF8String]);
    for (NSString *text in [StringsOf(language) allValues]) {
      EXPECT_NE(0u, [text length]);
      EXPECT_EQUAL_OBJECTS([text stringByTrimmingCharactersInSet:blanks], text);
    }
  }
}

OBJC_TEST(Strings, TheRangeCaptionHasBothPlaceholdersOnce) {
  NSDictionary *wording = [SettingInfo() objectForKey:@"Wording"];
  for (NSString *language in [BuiltBundle() localizations]) {
    SCOPED_TRACE([language UTF8String]);
    NSString *format = [StringsOf(language) objectForKey:@"IntegerValueRangeFormat"];
    for (NSString *name in @[ @"MinLabelForValueRange", @"MaxLabelForValueRange" ]) {
      NSString *placeholder = [wording objectForKey:name];
      EXPECT_EQ(2u, [[format componentsSeparatedByString:placeholder] count]) << [name UTF8String];
    }
  }
}

// Two equal titles would merge into one menu item.
OBJC_TEST(Strings, TitlesWithinAMenuDiffer) {
  NSDictionary *items = [SettingInfo() objectForKey:@"PopUpItem"];
  for (NSString *language in [BuiltBundle() localizations]) {
    SCOPED_TRACE([language UTF8String]);
    for (NSString *menu in items) {
      NSString *prefix = [[SettingInfo() objectForKey:@"Wording"]
          objectForKey:[@"PrefixFor" stringByAppendingString:menu]];
      NSMutableSet *titles = [NSMutableSet set];
      for (NSString *item in [items objectForKey:menu]) {
        [titles addObject:[StringsOf(language) objectForKey:[prefix stringByAppendingString:item]]];
      }
      EXPECT_EQ([[items objectForKey:menu] count], [titles count]) << [menu UTF8String];
    }
  }
}
