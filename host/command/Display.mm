#include "host/command/Display.h"

#import <Cocoa/Cocoa.h>

#include <csignal>
#include <cstdlib>

#include "host/dialog/Appearance.h"

bool ConnectToDisplay() {
  const char *display = getenv("DISPLAY");
  if (display == nullptr || *display == '\0') return false;
  // The dialog belongs to the application that prints; it has no icon of its own.
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary dictionaryWithObject:@"YES" forKey:@"GSSuppressAppIcon"]];
  UseLightAppearance();
  @try {
    // Without the end of its launch the application object never learns of a key window.
    [[NSApplication sharedApplication] finishLaunching];
  } @catch (NSException *exception) {
    return false;
  }
  // The display's back end catches these and waits for an event that never comes. Nothing is lost
  // by dying: files are written whole at the end.
  signal(SIGTERM, SIG_DFL);
  signal(SIGINT, SIG_DFL);
  return true;
}
