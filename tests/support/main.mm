// Test programs that need the application object, and with it a display.

#import <Cocoa/Cocoa.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <utility>

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

// All texts, also those of the platform, of libcups and of programs that tests run, are English
// whatever the language here is. The platform has read the variables before main begins: the
// program begins once more.
void SpeakEnglish(char **argv) {
  constexpr std::pair<const char *, const char *> kVariables[] = {{"LANGUAGE", "en"},
                                                                  {"LANG", "C.UTF-8"},
                                                                  {"LC_ALL", nullptr},
                                                                  {"LC_MESSAGES", nullptr},
                                                                  {"LC_CTYPE", nullptr}};
  bool was_other = false;
  for (const auto &[name, value] : kVariables) {
    const char *now = getenv(name);
    if (value == nullptr ? now == nullptr : now != nullptr && strcmp(now, value) == 0) continue;
    was_other = true;
    value == nullptr ? unsetenv(name) : setenv(name, value, 1);
  }
  if (was_other) execv("/proc/self/exe", argv);
}

}  // namespace

int main(int argc, char **argv) {
  SpeakEnglish(argv);
  testing::InitGoogleTest(&argc, argv);
  if (testing::UnitTest::GetInstance()->total_test_count() == 0) {
    std::cerr << "this program has no tests\n";
    return 1;
  }
  testing::AddGlobalTestEnvironment(new Application);
  return RUN_ALL_TESTS();
}
