// What operations say when they fail.

#ifndef TESTS_SUPPORT_MESSAGEOF_H
#define TESTS_SUPPORT_MESSAGEOF_H

#include <string>

#include "host/base/Expected.h"

// "" where there is no failure.
template <typename Value>
std::string MessageOf(const Expected<Value> &result) {
  return result ? "" : result.message();
}

#endif
