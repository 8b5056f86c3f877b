#include "host/job/SettingOptions.h"

#include <gtest/gtest.h>

#include "host/job/PrintSettings.h"
#import "tests/support/ObjCTest.h"

namespace {

PrintSettings SettingsWith(NSDictionary *values) {
  PrintSettings settings = EmptyPrintSettings();
  for (NSString *key in values) {
    PMPrintSettingsSetValue(settings.get(), (CFStringRef)key, [values objectForKey:key], false);
  }
  return settings;
}

}  // namespace

OBJC_TEST(SettingOptions, StringsAndNumbersBecomeOptions) {
  NSDictionary *values = @{
    @"größe" : @"groß",
    @"number" : [NSNumber numberWithInt:7],
    @"fraction" : [NSNumber numberWithDouble:1.25],
    @"dictionary" : @{@"a" : @"b"},
    @"list" : @[ @"a" ],
    @"data" : [NSData data],
    @"date" : [NSDate date],
  };
  const JobOptions expected = {{"größe", "groß"}, {"number", "7"}, {"fraction", "1.25"}};
  EXPECT_EQ(expected, *JobOptionsFromSettings(SettingsWith(values).get()));
}

OBJC_TEST(SettingOptions, OneOptionIsAsAmongAll) {
  NSDictionary *values = @{@"größe" : @"groß", @"number" : @7, @"list" : @[ @"a" ]};
  const PrintSettings settings = SettingsWith(values);
  EXPECT_EQ("groß", *JobOptionFromSettings(settings.get(), "größe"));
  EXPECT_EQ("7", *JobOptionFromSettings(settings.get(), "number"));
  EXPECT_EQ(std::nullopt, *JobOptionFromSettings(settings.get(), "list"));
  EXPECT_EQ(std::nullopt, *JobOptionFromSettings(settings.get(), "absent"));
}

OBJC_TEST(SettingOptions, TextsThatCannotBeSentAreNoOptions) {
  const unichar kZero[] = {'a', 0, 'b'};
  NSString *zero = [NSString stringWithCharacters:kZero length:3];
  NSMutableString *half = [NSMutableString stringWithString:@"\U0001F600"];
  [half deleteCharactersInRange:NSMakeRange(0, 1)];  // half a surrogate pair
  NSDictionary *values = @{@"a" : @"b", zero : @"c", @"d" : zero, @"e" : half};
  const JobOptions expected = {{"a", "b"}};
  EXPECT_EQ(expected, *JobOptionsFromSettings(SettingsWith(values).get()));
}

OBJC_TEST(SettingOptions, NamesThatWouldBeReadAsSomethingElseAreNoOptions) {
  for (NSString *name in @[ @"a", @"com.other.print-note_2", @"größe", @"a/b", @"a:b" ]) {
    EXPECT_EQ(1u, JobOptionsFromSettings(SettingsWith(@{name : @"x"}).get())->size());
    EXPECT_EQ(std::vector<std::string>(), TextsThatAreNoOptions(@{name : @"x"}));
  }
  for (NSString *name in @[
         @"", @"a b", @"a=b", @"a\nb", @"a\tb", @"a\"b", @"a'b", @"a{b", @"a}b", @"a\\b", @"a\x7f"
       ]) {
    EXPECT_EQ(0u, JobOptionsFromSettings(SettingsWith(@{name : @"x"}).get())->size());
    EXPECT_EQ(std::vector<std::string>{[name UTF8String]}, TextsThatAreNoOptions(@{name : @7}));
  }
}

OBJC_TEST(SettingOptions, SettingsThatCannotBeReadAreNotNoOptions) {
  EXPECT_FALSE(JobOptionsFromSettings(nullptr));
}
