#include "tests/macos/BundleUnderTest.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

#include "tests/support/RunProgram.h"

namespace fs = std::filesystem;

const fs::path &BundleUnderTest() {
  static const fs::path bundle = [] {
    const char *path = getenv("MACOS_BUNDLE");
    if (path == nullptr || !fs::is_directory(path)) {
      std::cerr << "MACOS_BUNDLE names no bundle; run these tests with make macos-check\n";
      std::exit(1);
    }
    return fs::path(path);
  }();
  return bundle;
}

std::vector<std::string> LinesOf(const std::string &program,
                                 const std::vector<std::string> &options) {
  std::vector<std::string> command{program};
  command.insert(command.end(), options.begin(), options.end());
  command.push_back(BundleUnderTest() / "Contents/MacOS/BackgroundNumbering");
  const RunResult result = RunProgram(command);
  EXPECT_EQ(0, result.status) << program << ": " << result.err;
  std::istringstream output(result.out);
  std::vector<std::string> lines;
  for (std::string line; std::getline(output, line);) lines.push_back(line);
  return lines;
}
