// TEST for bodies that send messages.

#ifndef TESTS_SUPPORT_OBJCTEST_H
#define TESTS_SUPPORT_OBJCTEST_H

#import <Cocoa/Cocoa.h>
#include <gtest/gtest.h>

/// Runs the body in an autorelease pool. An exception that escapes it fails the test with its name
/// and reason.
void RunObjCTest(void (*body)());

/// The name of the exception that the body raises, "" if it raises none.
template <typename Body>
NSString *NameOfRaised(Body body) {
  @try {
    body();
  } @catch (NSException *exception) {
    return [exception name];
  }
  return @"";
}

#define OBJC_TEST(suite, name)                              \
  static void suite##_##name##_Body();                      \
  TEST(suite, name) { RunObjCTest(suite##_##name##_Body); } \
  static void suite##_##name##_Body()

// Objects compared with isEqual:, two nils being equal; on failure both are described.
#define EXPECT_EQUAL_OBJECTS(expected, actual) \
  EXPECT_PRED_FORMAT2(AssertEqualObjects, expected, actual)
testing::AssertionResult AssertEqualObjects(const char *expected_text, const char *actual_text,
                                            id expected, id actual);

#endif
