// Waiting for what must come.

#ifndef TESTS_SUPPORT_PATIENCE_H
#define TESTS_SUPPORT_PATIENCE_H

#include <chrono>
#include <functional>
#include <thread>

#include "tests/support/Slowdown.h"

// Only what never comes takes so long, whatever else the machine has to do.
inline constexpr std::chrono::seconds kPatience = std::chrono::seconds(120) * kSlowdown;

// Far longer than what is to end at once takes, and not as long as libcups waits by itself.
inline constexpr std::chrono::seconds kSoon = std::chrono::seconds(20) * kSlowdown;

// Asks until the answer is yes; whether it ever was.
inline bool Becomes(const std::function<bool()> &condition) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

#endif
