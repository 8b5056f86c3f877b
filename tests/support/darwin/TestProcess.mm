#import "tests/support/TestProcess.h"

#import <Cocoa/Cocoa.h>

#include <cstdlib>

void SpeakEnglish(char **) {
  setenv("LANG", "en_US.UTF-8", 1);
  unsetenv("LC_ALL");
  @autoreleasepool {
    [[NSUserDefaults standardUserDefaults] setVolatileDomain:@{
      @"AppleLanguages" : @[ @"en" ]
    }
                                                     forName:NSArgumentDomain];
  }
}

void StartApplication() {
  @autoreleasepool {
    [[NSApplication sharedApplication] finishLaunching];
  }
}
