// Where the platform leaves memory behind that nobody can give back.

#ifndef TESTS_SUPPORT_LEAKCHECKINGPAUSE_H
#define TESTS_SUPPORT_LEAKCHECKINGPAUSE_H

#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#endif

// Leak checking passes over what this thread allocates while the object lives.
class LeakCheckingPause {
 public:
  LeakCheckingPause() {}
  ~LeakCheckingPause() {}

#if __has_feature(address_sanitizer)
 private:
  __lsan::ScopedDisabler disabler_;
#endif
};

#endif
