// The version stands in CMakeLists.txt, and all that is shipped has it.

#include <gtest/gtest.h>

#include <regex>

#include "tests/install/InstalledTree.h"

namespace {

const char kChangelog[] = SOURCE_DIRECTORY "/CHANGELOG.md";

// What the expression's first group matches first.
std::string Find(const std::string &text, const char *expression) {
  std::smatch match;
  return std::regex_search(text, match, std::regex(expression)) ? match[1].str() : "nothing";
}

RunResult DebianChangelog(const std::vector<std::string> &arguments) {
  std::vector<std::string> command = {SOURCE_DIRECTORY "/packaging/debian/changelog"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return RunProgram(command);
}

}  // namespace

TEST(Version, IsTheNewestOneOfTheChangelog) {
  EXPECT_EQ(VERSION, Find(ContentOf(kChangelog), R"(\n## \[([^\]]*)\])"));
}

TEST(Version, IsThatOfEverythingInstalled) {
  const InstalledTree tree;
  const auto content = [&tree](const char *name) { return ContentOf(tree.prefix() / name); };
  EXPECT_EQ("pdeprint " VERSION "\n",
            RunProgram({tree.prefix() / "bin/pdeprint", "--version"}).out);
  const std::string info =
      content("lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/Info.plist");
  EXPECT_EQ(VERSION, Find(info, R"(CFBundleVersion</key>\s*<string>([^<]*)<)"));
  EXPECT_EQ(VERSION, Find(info, R"(CFBundleShortVersionString</key>\s*<string>([^<]*)<)"));
  for (const char *ppd : {"VelmoraNumbering.ppd", "VelmoraNumberingMono.ppd"}) {
    EXPECT_EQ(VERSION, Find(content(("share/ppd/velmora/" + std::string(ppd)).c_str()),
                            R"(\*FileVersion: *"([^"]*)\")"))
        << ppd;
  }
}

TEST(Version, TheChangelogBecomesOneThatDebiansToolsRead) {
  const TemporaryFolder folder;
  const RunResult made =
      DebianChangelog({"numbering", "Some One <some.one@example.org>", kChangelog});
  ASSERT_EQ(0, made.status) << made.err;
  const std::string file = folder.Write("changelog", made.out);
  const auto field = [&file](const char *name) {
    const RunResult result = RunProgram({"dpkg-parsechangelog", "-l", file, "-S", name});
    EXPECT_EQ("", result.err);
    return result.out;
  };
  EXPECT_EQ(VERSION "\n", field("Version"));
  EXPECT_EQ("numbering\n", field("Source"));
  EXPECT_EQ("Some One <some.one@example.org>\n", field("Maintainer"));
  EXPECT_EQ(DebianChangelog({"--time", VERSION, kChangelog}).out, field("Timestamp"));
  EXPECT_NE(std::string::npos, field("Changes").find("pdeprint"));
}

TEST(Version, AChangelogThatSaysNoDateIsRefused) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("CHANGELOG.md", "# Changelog\n\n## [1.0.0]\n");
  const RunResult result = DebianChangelog({"--time", "1.0.0", file});
  EXPECT_NE(0, result.status);
  EXPECT_EQ(file + ":3: \"## [1.0.0]\" must be \"## [VERSION] - YEAR-MONTH-DAY\"\n", result.err);
}

TEST(Version, OneThatTheChangelogDoesNotBeginWithIsNotPacked) {
  const RunResult result = DebianChangelog({"--time", "999.0.0", kChangelog});
  EXPECT_NE(0, result.status);
  EXPECT_EQ(std::string(kChangelog) + ": its newest version is " VERSION
                                      ", and 999.0.0 is being packed; add what has changed\n",
            result.err);
}
