// An installed tree that has been moved as a whole.

#include <gtest/gtest.h>

#include "tests/install/InstalledTree.h"

namespace {

class MovedTree : public testing::Test {
 protected:
  MovedTree() { tree_.Move(); }

  RunResult Run(const std::vector<std::string> &arguments, EnvironmentChanges environment) const {
    environment.insert({{"LD_LIBRARY_PATH", std::nullopt}, {"DISPLAY", std::nullopt}});
    std::vector<std::string> command = {Path("bin/pdeprint")};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return RunProgram(command, {.environment = environment, .folder = {}, .out = {}});
  }

  std::string Path(const std::string &name) const { return tree_.prefix() / name; }

 private:
  InstalledTree tree_;
};

}  // namespace

TEST_F(MovedTree, OffersThePanelOnItsPrinters) {
  const std::string color = Path("share/ppd/velmora/VelmoraNumbering.ppd");
  const std::string mono = Path("share/ppd/velmora/VelmoraNumberingMono.ppd");
  const RunResult result = Run({"check", color, mono}, {{"LANGUAGE", "en"}});
  EXPECT_EQ(color + ": panel offered, color printer, by the printer\n" + mono +
                ": panel offered, monochrome printer, by the printer\n",
            result.out)
      << result.err;
}

TEST_F(MovedTree, LoadsItsOwnLibraryAndBundle) {
  const RunResult result = Run({"check", Path("share/ppd/velmora/VelmoraNumbering.ppd")},
                               {{"LANGUAGE", "en"}, {"LD_DEBUG", "libs"}});
  for (const char *name : {"lib/libPrintCore.so.1",
                           "lib/GNUstep/Bundles/BackgroundNumbering.plugin/BackgroundNumbering"}) {
    const std::string file = std::filesystem::path(name).filename();
    size_t loaded = 0;
    for (size_t at = 0; (at = result.err.find("calling init: ", at)) != std::string::npos; ++at) {
      const std::string line = result.err.substr(at + 14, result.err.find('\n', at) - at - 14);
      if (!line.ends_with('/' + file)) continue;
      ++loaded;
      EXPECT_EQ(std::filesystem::weakly_canonical(Path(name)),
                std::filesystem::weakly_canonical(line));
    }
    EXPECT_EQ(1u, loaded) << file;
  }
}

TEST_F(MovedTree, SpeaksTheUsersLanguage) {
  const RunResult english = Run({"show"}, {{"LANGUAGE", "en"}});
  const RunResult german = Run({"show"}, {{"LANGUAGE", "de"}});
  EXPECT_NE(english.err, german.err);
  EXPECT_EQ(
      RunPdeprint({"show"}, {.environment = {{"LANGUAGE", "de"}}, .folder = {}, .out = {}}).err,
      german.err);
}
