// The threads of this process.

#ifndef TESTS_HOST_CUPS_THREADS_H
#define TESTS_HOST_CUPS_THREADS_H

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/Patience.h"

inline size_t CountOfThreads() {
  const std::filesystem::directory_iterator threads("/proc/self/task");
  return static_cast<size_t>(std::distance(begin(threads), end(threads)));
}

// Work that is left behind reads the environment, which must not change meanwhile.
inline void ExpectThreads(size_t count) {
  EXPECT_TRUE(Becomes([count] { return CountOfThreads() <= count; }));
}

#endif
