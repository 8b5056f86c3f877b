// Comparing what operations answer, or why they fail.

#ifndef TESTS_SUPPORT_EXPECTEDVALUE_H
#define TESTS_SUPPORT_EXPECTEDVALUE_H

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "host/base/Expected.h"

// "" where there is no failure.
template <typename Value>
std::string MessageOf(const Expected<Value> &result) {
  return result ? "" : result.message();
}

// Whether there is this value.
template <typename Other, typename Value>
bool operator==(const Other &value, const Expected<Value> &result) {
  return result && value == *result;
}

template <typename Value>
void PrintTo(const Expected<Value> &result, std::ostream *stream) {
  if (result) {
    *stream << testing::PrintToString(*result);
  } else {
    *stream << "failure: " << result.message();
  }
}

#endif
