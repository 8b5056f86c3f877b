#include "tests/install/InstalledTree.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fs = std::filesystem;

void Install(const std::string &destdir, const std::vector<std::string> &arguments) {
  std::vector<std::string> command = {CMAKE_PROGRAM, "--install", BINARY_DIRECTORY};
  command.insert(command.end(), arguments.begin(), arguments.end());
  RunOptions options;
  options.environment["DESTDIR"] = destdir;
  const RunResult result = RunProgram(command, options);
  EXPECT_EQ(0, result.status) << result.out << result.err;
}

InstalledTree::InstalledTree(const std::vector<std::string> &arguments)
    : prefix_(folder_.path() / "prefix") {
  std::vector<std::string> all = {"--prefix", prefix_};
  all.insert(all.end(), arguments.begin(), arguments.end());
  Install("", all);
}

std::vector<std::string> InstalledTree::Files() const { return FilesBelow(prefix_); }

void InstalledTree::Move() {
  const fs::path other = folder_.path() / "elsewhere/deeper";
  fs::create_directory(other.parent_path());
  fs::rename(prefix_, other);
  prefix_ = other;
}

std::vector<std::string> FilesBelow(const fs::path &folder) {
  std::vector<std::string> names;
  if (!fs::is_directory(folder)) return names;
  for (const auto &entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_directory() && !entry.is_symlink()) continue;
    names.push_back(entry.path().lexically_relative(folder));
  }
  std::ranges::sort(names);
  return names;
}

bool IsBinary(const fs::path &file) {
  return ContentOf(file).starts_with(
      "\x7f"
      "ELF");
}
