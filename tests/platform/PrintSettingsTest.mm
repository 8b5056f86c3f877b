#import <PrintCore/PMCore.h>

#import "tests/support/ObjCTest.h"

namespace {

struct PrintSettingsTest : testing::Test {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  PMPrintSettings settings = nullptr;
  PrintSettingsTest() { PMCreatePrintSettings(&settings); }
  ~PrintSettingsTest() override {
    PMRelease(settings);
    [pool drain];
  }

  OSStatus Set(NSString *key, id value, Boolean locked = false) {
    return PMPrintSettingsSetValue(settings, (CFStringRef)key, (CFTypeRef)value, locked);
  }
  // The value; when there is none, checks that the slot was cleared.
  id Get(NSString *key, OSStatus expected = kPMNoError) {
    CFTypeRef value = @"untouched";
    EXPECT_EQ(expected, PMPrintSettingsGetValue(settings, (CFStringRef)key, &value));
    return (id)value;
  }
};

}  // namespace

TEST_F(PrintSettingsTest, ANewObjectHoldsNothing) {
  CFArrayRef keys = nullptr;
  EXPECT_EQ(kPMNoError, PMPrintSettingsCopyKeys(settings, &keys));
  EXPECT_EQ(0u, [(NSArray *)keys count]);
  [(NSArray *)keys release];
}

TEST_F(PrintSettingsTest, AStoredValueIsFoundUnderItsKey) {
  EXPECT_EQ(kPMNoError, Set(@"Key", @"value"));
  EXPECT_EQUAL_OBJECTS(@"value", Get(@"Key"));
}

TEST_F(PrintSettingsTest, AMissingKeyAnswersNoValueAndTheStatusForIt) {
  EXPECT_EQUAL_OBJECTS(nil, Get(@"Key", kPMKeyNotFound));
  EXPECT_EQ(-9589, kPMKeyNotFound);
}

TEST_F(PrintSettingsTest, ANullValueRemovesTheKey) {
  Set(@"Key", @"value");
  EXPECT_EQ(kPMNoError, Set(@"Key", nil));
  EXPECT_EQUAL_OBJECTS(nil, Get(@"Key", kPMKeyNotFound));
  EXPECT_EQ(kPMNoError, Set(@"Key", nil)) << "removing what is not there is no error";
}

TEST_F(PrintSettingsTest, ALockedValueStaysAsItIs) {
  EXPECT_EQ(kPMNoError, Set(@"Key", @"value", true));
  EXPECT_EQ(kPMItemIsLocked, Set(@"Key", @"other"));
  EXPECT_EQ(kPMItemIsLocked, Set(@"Key", nil));
  EXPECT_EQUAL_OBJECTS(@"value", Get(@"Key"));
  EXPECT_EQ(-9586, kPMItemIsLocked);
}

TEST_F(PrintSettingsTest, MissingArgumentsAreRefused) {
  CFTypeRef value = nullptr;
  CFDictionaryRef dictionary = nullptr;
  CFArrayRef keys = nullptr;
  CFStringRef key = (CFStringRef) @"Key";
  EXPECT_EQ(-50, kPMInvalidParameter);
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsGetValue(nullptr, key, &value));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsGetValue(settings, nullptr, &value));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsGetValue(settings, key, nullptr));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsSetValue(nullptr, key, key, false));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsSetValue(settings, nullptr, key, false));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsCopyAsDictionary(nullptr, &dictionary));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsCopyAsDictionary(settings, nullptr));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsCopyKeys(nullptr, &keys));
  EXPECT_EQ(kPMInvalidParameter, PMPrintSettingsCopyKeys(settings, nullptr));
  EXPECT_EQ(kPMInvalidParameter, PMCreatePrintSettings(nullptr));
  EXPECT_EQ(kPMInvalidParameter, PMRetain(nullptr));
  EXPECT_EQ(kPMInvalidParameter, PMRelease(nullptr));
}

TEST_F(PrintSettingsTest, TheDictionaryIsACopyOfAllValues) {
  Set(@"First", @"1");
  Set(@"Second", @"2");
  CFDictionaryRef copied = nullptr;
  EXPECT_EQ(kPMNoError, PMPrintSettingsCopyAsDictionary(settings, &copied));
  Set(@"First", @"changed");
  NSDictionary *expected = @{@"First" : @"1", @"Second" : @"2"};
  EXPECT_EQUAL_OBJECTS(expected, (NSDictionary *)copied);
  [(NSDictionary *)copied release];
}

TEST_F(PrintSettingsTest, AValueIsRetainedWhileItIsStored) {
  NSObject *value = [[NSObject alloc] init];
  Set(@"Key", value);
  EXPECT_EQ(2u, [value retainCount]);
  Set(@"Key", nil);
  EXPECT_EQ(1u, [value retainCount]);
  [value release];
}

TEST_F(PrintSettingsTest, ARetainedObjectOutlivesOneRelease) {
  EXPECT_EQ(kPMNoError, PMRetain(settings));
  EXPECT_EQ(kPMNoError, PMRelease(settings));
  EXPECT_EQ(kPMNoError, Set(@"Key", @"value"));
}
