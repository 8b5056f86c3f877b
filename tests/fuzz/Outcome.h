// What comes of calls into Objective-C code.

#ifndef TESTS_FUZZ_OUTCOME_H
#define TESTS_FUZZ_OUTCOME_H

#import <Foundation/Foundation.h>

#include <string>

#include "tests/support/Interposed.h"

namespace fuzz {

// What the body, which answers a finding, raises is one too, but for exceptions of the name that is
// let pass. Nothing is left in an autorelease pool, nor in the list of calls.
template <typename Body>
std::string Outcome(Body body, NSString *passes = nil) {
  std::string finding;
  @autoreleasepool {
    @try {
      finding = body();
    } @catch (NSException *exception) {
      if (![[exception name] isEqual:passes]) {
        finding = std::string("raised ") + [[exception name] UTF8String] + ": " +
                  [[exception reason] UTF8String];
      }
    }
  }
  interposed::Clear();
  return finding;
}

}  // namespace fuzz

#endif
