// Exceptions raised while an object is made.

#ifndef TESTS_SUPPORT_HALFMADE_H
#define TESTS_SUPPORT_HALFMADE_H

#include "tests/support/LeakCheckingPause.h"
#import "tests/support/ObjCTest.h"

/// As NameOfRaised. Nobody has a reference by which to give back the half-made object that the
/// exception leaves behind, so leak checking passes over what the body allocates.
template <typename Body>
NSString *NameOfRaisedInTheMaking(Body body) {
  LeakCheckingPause pause;
  return NameOfRaised(body);
}

#endif
