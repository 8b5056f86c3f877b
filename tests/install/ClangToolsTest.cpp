// Which tool of clang is used where there are several, by cmake/ClangTools.cmake.

#include <gtest/gtest.h>

#include "tests/support/RunProgram.h"

namespace fs = std::filesystem;

namespace {

class ClangTools : public testing::Test {
 protected:
  // A program that tells of this version.
  void Install(const std::string &name, const std::string &version) const {
    const fs::path program = folder_.Write(name, "#!/bin/sh\necho 'Debian " + version + "'\n");
    fs::permissions(program, fs::perms::owner_all);
  }

  RunResult Find(const std::string &tool, const std::string &version = "") const {
    return RunProgram({CMAKE_PROGRAM, "-D", "TOOL=" + tool, "-D", "VERSION=" + version, "-P",
                       SOURCE_DIRECTORY "/cmake/ClangTools.cmake"},
                      {.environment = {{"PATH", folder_.path().string()}}});
  }

  std::string Path(const std::string &name) const {
    return (folder_.path() / name).string() + "\n";
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace

TEST_F(ClangTools, TheOneWithoutVersionInItsNameIsFirst) {
  Install("clang++", "clang version 14.0.6");
  Install("clang++-19", "clang version 19.1.7");
  EXPECT_EQ(Path("clang++"), Find("clang++").out);
}

TEST_F(ClangTools, TheNewestKnownOneIsNextWhereThatIsNotKnown) {
  Install("ld64.lld", "LLD 13.0.1 (compatible with GNU linkers)");
  Install("ld64.lld-15", "LLD 15.0.6 (compatible with GNU linkers)");
  Install("ld64.lld-16", "LLD 16.0.6 (compatible with GNU linkers)");
  Install("ld64.lld-21", "LLD 21.1.0 (compatible with GNU linkers)");
  EXPECT_EQ(Path("ld64.lld-16"), Find("ld64.lld").out);
}

TEST_F(ClangTools, AnotherVersionIsTriedWhereNoneIsKnownAndSaysSo) {
  Install("clang-tidy", "LLVM version 21.1.0");
  const RunResult result = Find("clang-tidy");
  EXPECT_EQ(Path("clang-tidy"), result.out);
  EXPECT_NE(std::string::npos, result.err.find("has version 21; trying it, 14 to 19"))
      << result.err;
}

TEST_F(ClangTools, TheVersionThatIsAskedForIsTheOnlyOne) {
  Install("llvm-profdata", "LLVM version 14.0.6");
  Install("llvm-profdata-19", "LLVM version 19.1.7");
  EXPECT_EQ(Path("llvm-profdata-19"), Find("llvm-profdata", "19").out);
  EXPECT_NE(0, Find("llvm-profdata", "18").status);
}

TEST_F(ClangTools, ThatThereIsNoneIsAFailure) {
  const RunResult result = Find("clang-format");
  EXPECT_NE(0, result.status);
  EXPECT_NE(std::string::npos, result.err.find("There is no clang-format")) << result.err;
}
