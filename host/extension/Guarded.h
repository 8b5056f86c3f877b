// Calls into the code of extension bundles.

#ifndef HOST_EXTENSION_GUARDED_H
#define HOST_EXTENSION_GUARDED_H

#import <Foundation/Foundation.h>

#include <optional>
#include <string>

// The text in UTF-8; nil, or one that has none: "".
std::string Words(NSString *text);

// What an exception says: "NSGenericException: no paper". Any object may be one.
std::string DescribeException(id exception);

// Runs the body, which throws no C++ exception, and answers what it raised. Whatever it left to an
// autorelease pool is gone afterwards.
template <typename Body>
std::optional<std::string> WhatRaises(Body body) {
  @autoreleasepool {
    @try {
      body();
    } @catch (id exception) {
      return DescribeException(exception);
    }
  }
  return std::nullopt;
}

#endif
