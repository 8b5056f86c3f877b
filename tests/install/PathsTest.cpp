// What installed files say of where they were made, and where they look for libraries.

#include <gtest/gtest.h>

#include <regex>

#include "tests/install/InstalledTree.h"

namespace fs = std::filesystem;

namespace {

std::string RunPathOf(const fs::path &binary) {
  const std::string dynamic = RunProgram({"readelf", "-d", binary}).out;
  EXPECT_NE(std::string::npos, dynamic.find("(NEEDED)")) << binary;
  std::smatch match;
  const std::regex path(R"(\(R(?:UN)?PATH\)[^\[]*\[(.*)\])");
  return std::regex_search(dynamic, match, path) ? match[1].str() : "";
}

}  // namespace

// Debugging information has them, and is not installed with --strip.
TEST(Paths, NoFileHasAPathOfTheSourcesOrTheBuild) {
  const InstalledTree tree({"--strip"});
  const std::vector<std::string> files = tree.Files();
  ASSERT_FALSE(files.empty());
  for (const std::string &file : files) {
    const std::string content = ContentOf(tree.prefix() / file);
    EXPECT_FALSE(content.empty()) << file;
    for (const std::string path : {SOURCE_DIRECTORY, BINARY_DIRECTORY}) {
      const size_t at = content.find(path);
      EXPECT_EQ(std::string::npos, at)
          << file << " has " << content.substr(at, content.find('\0', at) - at);
    }
  }
}

TEST(Paths, LibrariesAreLookedForFromTheFileItself) {
  const InstalledTree tree;
  std::map<std::string, std::string> paths;
  for (const std::string &file : tree.Files()) {
    const fs::path path = tree.prefix() / file;
    if (!fs::is_symlink(path) && IsBinary(path)) paths[path.filename()] = RunPathOf(path);
  }
  const std::map<std::string, std::string> expected = {{"pdeprint", "$ORIGIN/../lib"},
                                                       {"BackgroundNumbering", "$ORIGIN/../../.."},
                                                       {"backgroundnumbers", ""},
                                                       {"backgroundnumbers-look", ""},
                                                       {"backgroundnumbers-pictures", ""},
                                                       {"libPrintCore.so." VERSION, ""},
                                                       {"pdeprint-pages", ""},
                                                       {"pdeprint-picture", ""},
                                                       {"pdeprint-portal", ""}};
  EXPECT_EQ(expected, paths);
}
