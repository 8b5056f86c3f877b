#include "host/job/SettingValues.h"

#include "host/job/PrintSettings.h"
#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"

namespace {

// A job whose Size an extension has locked.
PrintSettings WithLockedSize() {
  PrintSettings settings = EmptyPrintSettings();
  PMPrintSettingsSetValue(settings.get(), (CFStringRef) @"Size", (CFTypeRef) @"Large", true);
  return settings;
}

id Value(const PrintSettings &settings, NSString *key) {
  Expected<Retained<id>> value = ValueOf(settings.get(), key);
  EXPECT_TRUE(value) << value.message();
  return [[value->get() retain] autorelease];
}

}  // namespace

OBJC_TEST(SettingValues, AreWhatWasPutUnderTheirKeys) {
  const PrintSettings settings = EmptyPrintSettings();
  Expected<Change> change = SetValue(settings.get(), @"Size", @"Large");
  ASSERT_TRUE(change) << change.message();
  EXPECT_EQ(Change::kMade, *change);
  EXPECT_EQUAL_OBJECTS(@"Large", Value(settings, @"Size"));
  EXPECT_EQUAL_OBJECTS(@{@"Size" : @"Large"}, ValuesOf(settings.get())->get());
  EXPECT_TRUE(SetValue(settings.get(), @"Size", nil));
  EXPECT_EQUAL_OBJECTS(nil, Value(settings, @"Size"));
}

OBJC_TEST(SettingValues, ThatAreNotThereOrHaveNoKeyAreNil) {
  const PrintSettings settings = EmptyPrintSettings();
  EXPECT_EQUAL_OBJECTS(nil, Value(settings, @"Size"));
  EXPECT_EQUAL_OBJECTS(nil, Value(settings, nil));
}

OBJC_TEST(SettingValues, StayAsTheyAreWhereAnExtensionHasLockedThem) {
  const PrintSettings settings = WithLockedSize();
  for (NSString *value : {@"Small", (NSString *)nil}) {
    Expected<Change> change = SetValue(settings.get(), @"Size", value);
    ASSERT_TRUE(change) << change.message();
    EXPECT_EQ(Change::kLocked, *change);
    EXPECT_EQUAL_OBJECTS(@"Large", Value(settings, @"Size"));
  }
  EXPECT_EQ("cannot change Size of the job: an extension has locked it", IsLocked(@"Size").message);
}

OBJC_TEST(SettingValues, OfNoSettingsFailWithTheStatus) {
  EXPECT_EQ("cannot read the settings of the job: error -50 of the print system",
            ValuesOf(nullptr).message());
  EXPECT_EQ("cannot read the settings of the job: error -50 of the print system",
            ValueOf(nullptr, @"Size").message());
  EXPECT_EQ("cannot change Size of the job: error -50 of the print system",
            SetValue(nullptr, @"Size", @"Large").message());
}

// Half a surrogate pair has no UTF-8.
OBJC_TEST(SettingValues, OfAKeyThatNoMessageCanNameFailAllTheSame) {
  NSMutableString *half = [NSMutableString stringWithString:@"\U0001F600"];
  [half deleteCharactersInRange:NSMakeRange(0, 1)];
  EXPECT_EQ("cannot change  of the job: error -50 of the print system",
            SetValue(nullptr, half, @"Large").message());
}

OBJC_TEST(SettingValues, AreNotTakenFromACallThatFailed) {
  const PrintSettings settings = WithLockedSize();
  interposed::FailCall(1, -1);
  EXPECT_FALSE(ValueOf(settings.get(), @"Size"));
  interposed::FailCall(1, -1);
  EXPECT_FALSE(ValuesOf(settings.get()));
  interposed::FailCall(0, 0);
}
