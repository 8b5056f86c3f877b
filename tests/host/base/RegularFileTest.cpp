#include "host/base/RegularFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/ExpectedValue.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

std::string Reason(const fs::path &path) { return MessageOf(CheckRegularFile(path)); }

}  // namespace

TEST(RegularFile, IsOneAlsoBehindALink) {
  const TemporaryFolder folder;
  const fs::path file = folder.Write("a", "");
  fs::create_symlink(file, folder.path() / "link");
  EXPECT_EQ("", Reason(file));
  EXPECT_EQ("", Reason(folder.path() / "link"));
}

TEST(RegularFile, WhatIsAbsentIsSaidToBe) {
  const TemporaryFolder folder;
  fs::create_symlink(folder.path() / "absent", folder.path() / "link");
  EXPECT_EQ("no such file", Reason(folder.path() / "absent"));
  EXPECT_EQ("no such file", Reason(folder.path() / "link"));
}

TEST(RegularFile, FoldersAndPipesAreNone) {
  const TemporaryFolder folder;
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  EXPECT_EQ("not a regular file", Reason(folder.path()));
  EXPECT_EQ("not a regular file", Reason(pipe));
}
