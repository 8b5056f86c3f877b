#import "tests/support/TestProcess.h"

#import <Cocoa/Cocoa.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <utility>

// The platform has read the variables before main begins: the program begins once more.
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

void StartApplication() {
  static char program[] = "test";
  char *arguments[] = {program, nullptr};
  [NSProcessInfo initializeWithArguments:arguments count:1 environment:environ];
  @autoreleasepool {
    [[NSUserDefaults standardUserDefaults] registerDefaults:@{
      @"GSSuppressAppIcon" : @"YES",
      @"NSLanguages" : @[ @"en" ]
    }];
    if (getenv("DISPLAY") != nullptr) [[NSApplication sharedApplication] finishLaunching];
  }
}
