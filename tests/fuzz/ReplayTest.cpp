// The targets with the files of their folders: inputs worth trying again, and those that once
// showed a mistake.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "tests/fuzz/Targets.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace fuzz {

void PrintTo(const Target &target, std::ostream *stream) { *stream << target.name; }

}  // namespace fuzz

namespace {

class Replay : public testing::TestWithParam<fuzz::Target> {};

std::vector<fs::path> FilesOf(const fuzz::Target &target) {
  std::vector<fs::path> files;
  std::error_code error;
  const fs::path folder = fs::path(SOURCE_DIRECTORY "/tests/fuzz/corpora") / target.name;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder, error)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

TEST_P(Replay, FindsNothing) {
  const std::vector<fs::path> files = FilesOf(GetParam());
  EXPECT_FALSE(files.empty()) << "no files for " << GetParam().name;
  for (const fs::path &file : files) {
    SCOPED_TRACE(file.filename().string());
    EXPECT_EQ("", GetParam().run(ContentOf(file)));
  }
}

INSTANTIATE_TEST_SUITE_P(Corpora, Replay, testing::ValuesIn(fuzz::kTargets),
                         [](const auto &info) { return std::string(info.param.name); });
