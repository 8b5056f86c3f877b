#include "host/command/Display.h"

#import <Cocoa/Cocoa.h>

#include <csignal>
#include <cstdlib>

#include "host/dialog/Appearance.h"

namespace {

// Whatever is done to these while the object lives does not last.
class SignalsAsBefore {
 public:
  SignalsAsBefore() {
    sigaction(SIGTERM, nullptr, &term_);
    sigaction(SIGINT, nullptr, &int_);
  }
  ~SignalsAsBefore() {
    sigaction(SIGTERM, &term_, nullptr);
    sigaction(SIGINT, &int_, nullptr);
  }
  SignalsAsBefore(const SignalsAsBefore &) = delete;
  SignalsAsBefore &operator=(const SignalsAsBefore &) = delete;

 private:
  struct sigaction term_, int_;
};

}  // namespace

bool ConnectToDisplay() {
  static bool is_connected = false;
  if (is_connected) return true;
  const char *display = getenv("DISPLAY");
  if (display == nullptr || *display == '\0') return false;
  // The dialog belongs to the application that prints; it has no icon of its own.
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary dictionaryWithObject:@"YES" forKey:@"GSSuppressAppIcon"]];
  UseLightAppearance();
  // The first window asks ImageMagick which pictures it can read, and that loads a module for every
  // format: half of the time until the window is there. Here it finds none. The platform reads the
  // usual formats (TIFF, PNG, JPEG, GIF) itself.
  setenv("MAGICK_CODER_MODULE_PATH", "/dev/null", 0);
  // The display's back end catches these and waits for an event that never comes. Nothing is lost
  // by dying: files are written whole at the end.
  const SignalsAsBefore signals;
  @try {
    // Without the end of its launch the application object never learns of a key window.
    [[NSApplication sharedApplication] finishLaunching];
  } @catch (NSException *exception) {
    return false;
  }
  is_connected = true;
  return true;
}
