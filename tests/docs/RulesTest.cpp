// Rules of CONTRIBUTING.md that can be counted.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

TEST(Rules, NoTestFileIsLongerThan400Lines) {
  const std::set<std::string> kinds = {".cpp", ".mm", ".h"};
  int files = 0;
  for (const auto &entry : fs::recursive_directory_iterator(SOURCE_DIRECTORY "/tests")) {
    if (!kinds.contains(entry.path().extension())) continue;
    ++files;
    EXPECT_LE(std::ranges::count(ContentOf(entry.path()), '\n'), 400) << entry.path();
  }
  EXPECT_GT(files, 200);
}
