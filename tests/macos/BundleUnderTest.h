// The bundle for macOS that these tests look at. It was compiled and put together here,
// and is not loaded.

#ifndef TESTS_MACOS_BUNDLEUNDERTEST_H
#define TESTS_MACOS_BUNDLEUNDERTEST_H

#include <filesystem>
#include <string>
#include <vector>

inline constexpr const char *kProcessors[] = {"arm64", "x86_64"};

// The installed bundle, from the variable MACOS_BUNDLE; the program ends if it names none.
const std::filesystem::path &BundleUnderTest();

// The lines of what a program of the compiler's package says of the executable; a failure of the
// program fails the test.
std::vector<std::string> LinesOf(const std::string &program,
                                 const std::vector<std::string> &options);

#endif
