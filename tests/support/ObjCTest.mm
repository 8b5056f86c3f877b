#import "tests/support/ObjCTest.h"

void RunObjCTest(void (*body)()) {
  @autoreleasepool {
    @try {
      body();
    } @catch (NSException *exception) {
      ADD_FAILURE() << "raised " << [[exception name] UTF8String] << ": "
                    << [[exception reason] UTF8String];
    }
  }
}

testing::AssertionResult AssertEqualObjects(const char *expected_text, const char *actual_text,
                                            id expected, id actual) {
  if (expected == actual || [expected isEqual:actual]) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << actual_text << " is " << (actual == nil ? "nil" : [[actual description] UTF8String])
         << ", expected " << expected_text << ", which is "
         << (expected == nil ? "nil" : [[expected description] UTF8String]);
}
