// Exceptions raised while an object is made.

#ifndef TESTS_SETTINGINFO_HALFMADE_H
#define TESTS_SETTINGINFO_HALFMADE_H

#import "tests/support/ObjCTest.h"

#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#endif

/// As NameOfRaised. Nobody has a reference by which to give back the half-made object that the
/// exception leaves behind, so leak checking passes over what the body allocates.
template <typename Body>
NSString *NameOfRaisedInTheMaking(Body body) {
#if __has_feature(address_sanitizer)
  __lsan::ScopedDisabler disabler;
#endif
  return NameOfRaised(body);
}

#endif
