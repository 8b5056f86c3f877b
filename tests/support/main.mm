// Test programs that need the application object, and with it a display.

#import <Cocoa/Cocoa.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace {

class Application : public testing::Environment {
  void SetUp() override {
    if (getenv("DISPLAY") == nullptr) {
      std::cerr << "these tests need a display; run them through ctest\n";
      std::exit(1);
    }
    static char program[] = "test";
    char *arguments[] = {program, nullptr};
    [NSProcessInfo initializeWithArguments:arguments count:1 environment:environ];
    @autoreleasepool {
      [[NSUserDefaults standardUserDefaults] registerDefaults:@{
        @"GSSuppressAppIcon" : @"YES",
        @"NSLanguages" : @[ @"en" ]
      }];
      [[NSApplication sharedApplication] finishLaunching];
    }
  }
};

}  // namespace

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::UnitTest::GetInstance()->total_test_count() == 0) {
    std::cerr << "this program has no tests\n";
    return 1;
  }
  testing::AddGlobalTestEnvironment(new Application);
  return RUN_ALL_TESTS();
}
