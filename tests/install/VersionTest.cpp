// The version stands in CMakeLists.txt, and all that is shipped has it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "tests/install/InstalledTree.h"

namespace {

const char kChangelog[] = SOURCE_DIRECTORY "/CHANGELOG.md";
const char kControl[] = SOURCE_DIRECTORY "/debian/control";

// What the expression's first group matches first.
std::string Find(const std::string &text, const char *expression) {
  std::smatch match;
  return std::regex_search(text, match, std::regex(expression)) ? match[1].str() : "nothing";
}

RunResult DebianChangelog(const std::string &control, const std::string &changelog) {
  return RunProgram({SOURCE_DIRECTORY "/packaging/debian-changelog", control, changelog});
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

TEST(Version, DebiansChangelogIsMadeFromTheOne) {
  const RunResult made = DebianChangelog(kControl, kChangelog);
  ASSERT_EQ(0, made.status) << made.err;
  EXPECT_EQ(made.out, ContentOf(SOURCE_DIRECTORY "/debian/changelog"))
      << "run: packaging/debian-changelog debian/control CHANGELOG.md >debian/changelog";
}

TEST(Version, IsThatOfTheDebianPackages) {
  const auto field = [](const char *name) {
    const RunResult result =
        RunProgram({"dpkg-parsechangelog", "-l", SOURCE_DIRECTORY "/debian/changelog", "-S", name});
    EXPECT_EQ("", result.err);
    return result.out;
  };
  EXPECT_EQ(VERSION "\n", field("Version"));
  const std::string control = ContentOf(kControl);
  EXPECT_EQ(Find(control, R"(\nMaintainer: (.*))") + '\n', field("Maintainer"));
  EXPECT_EQ(Find(control, R"(^Source: (.*))") + '\n', field("Source"));
  EXPECT_NE(std::string::npos, field("Changes").find("pdeprint"));
}

TEST(Version, DebiansChangelogHasTheDayOfTheVersion) {
  const TemporaryFolder folder;
  const std::string changelog = folder.Write(
      "CHANGELOG.md", "# Changelog\n\n## [2.1.0] - 2031-02-03\n\n### Fixed\n\n- It.\n");
  const std::string control =
      folder.Write("control", "Source: numbering\nMaintainer: Some One <some.one@example.org>\n");
  EXPECT_EQ(
      "numbering (2.1.0) unstable; urgency=medium\n\n  [ Fixed ]\n  * It.\n\n"
      " -- Some One <some.one@example.org>  Mon, 03 Feb 2031 00:00:00 +0000\n",
      DebianChangelog(control, changelog).out);
}

TEST(Version, DebiansChangelogHasNoLineThatItsRulesFindTooLong) {
  const TemporaryFolder folder;
  const std::string changelog =
      folder.Write("CHANGELOG.md",
                   "## [2.1.0] - 2031-02-03\n\n### Fixed\n\n- Some lines are as long as this one, "
                   "which Markdown has "
                   "nothing against,\n  and others are\n  short.\n- It.\n");
  const std::string control =
      folder.Write("control", "Source: numbering\nMaintainer: Some One <some.one@example.org>\n");
  EXPECT_THAT(
      DebianChangelog(control, changelog).out,
      testing::HasSubstr("  * Some lines are as long as this one, which Markdown has nothing "
                         "against, and\n    others are short.\n  * It.\n"));
}

TEST(Version, AChangelogThatSaysNoDateIsRefused) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("CHANGELOG.md", "# Changelog\n\n## [1.0.0]\n");
  const RunResult result = DebianChangelog(kControl, file);
  EXPECT_NE(0, result.status);
  EXPECT_EQ(file + ":3: \"## [1.0.0]\" must be \"## [VERSION] - YEAR-MONTH-DAY\"\n", result.err);
}

TEST(Version, AControlFileWithoutMaintainerIsRefused) {
  const TemporaryFolder folder;
  const std::string file =
      folder.Write("control", "Source: numbering\n\nMaintainer: no field of it\n");
  const RunResult result = DebianChangelog(file, kChangelog);
  EXPECT_NE(0, result.status);
  EXPECT_EQ(file + ": there is no field Maintainer\n", result.err);
}
