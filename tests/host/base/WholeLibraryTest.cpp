#include "host/base/WholeLibrary.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

TEST(WholeLibrary, IsOneThatWasBuilt) { EXPECT_TRUE(IsWholeLibrary(EMPTY_LIBRARY)); }

TEST(WholeLibrary, IsNotOneThatWasCutAnywhere) {
  TemporaryFolder folder;
  const fs::path copy = folder.path() / "library";
  fs::copy_file(EMPTY_LIBRARY, copy);
  for (auto size = fs::file_size(copy) - 1; size > 64; size = size * 3 / 4) {
    fs::resize_file(copy, size);
    EXPECT_FALSE(IsWholeLibrary(copy)) << size;
  }
}

// The loader itself says what is wrong with these.
TEST(WholeLibrary, LeavesFilesOfOtherKindsToTheLoader) {
  TemporaryFolder folder;
  EXPECT_TRUE(IsWholeLibrary(folder.Write("text", std::string(1000, 'x'))));
  EXPECT_TRUE(IsWholeLibrary(folder.Write("short",
                                          "\x7f"
                                          "ELF")));
  EXPECT_TRUE(IsWholeLibrary(folder.path() / "absent"));
}
