// What is installed, at work.

#include <gmock/gmock.h>

#include "tests/host/command/BuiltProgram.h"
#include "tests/support/StringsTable.h"

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

// The installed program, bundle and library in a place of their own.
class Installed : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new TemporaryFolder;
    const RunResult result = RunProgram(
        {CMAKE_PROGRAM, "--install", BINARY_DIRECTORY, "--prefix", folder_->path().string()});
    ASSERT_EQ(0, result.status) << result.out << result.err;
  }
  static void TearDownTestSuite() {
    delete folder_;
    folder_ = nullptr;
  }

  static fs::path Prefix() { return fs::canonical(folder_->path()); }
  static fs::path Bundle() { return Prefix() / "lib/GNUstep/Bundles/BackgroundNumbering.plugin"; }
  static RunResult Run(Arguments arguments, const std::string &language = "en") {
    arguments.insert(arguments.begin(), (Prefix() / "bin/pdeprint").string());
    return RunProgram(
        arguments,
        {.environment = {{"DISPLAY", {}}, {"LANGUAGE", language}, {"LD_LIBRARY_PATH", {}}},
         .folder = Prefix().string()});
  }

  static TemporaryFolder *folder_;
};

TemporaryFolder *Installed::folder_ = nullptr;

}  // namespace

TEST_F(Installed, FindsItsTexts) {
  EXPECT_TRUE(fs::exists(Prefix() / "share/pdeprint/en.lproj/pdeprint.strings"));
  folder_->Write("share/pdeprint/de.lproj/pdeprint.strings",
                 Utf16(u"\"cannot read %1: %2\" = \"%1 nicht lesbar: %2\";\n"
                       u"\"no such file\" = \"Datei fehlt\";\n"));
  EXPECT_EQ("pdeprint: /absent.ppd nicht lesbar: Datei fehlt\n",
            Run({"settings", "--ppd", "/absent.ppd"}, "de").err);
}

TEST_F(Installed, FindsItsBundle) {
  RunResult result = Run({"check", kColorPPD});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(std::string(kColorPPD) + ": panel offered, color printer, by the printer\n",
            result.out);
  // The bundle's own, not the build tree's, is what it found.
  fs::rename(Bundle(), Prefix() / "elsewhere");
  result = Run({"check", kColorPPD});
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(
      result.err,
      StartsWith("pdeprint: no extension bundle (*.plugin) in any of these folders: " +
                 (Prefix() / "bin").string() + ", " + Bundle().parent_path().string() + ", "));
  EXPECT_THAT(result.err, EndsWith("; name one with --plugin\n"));
  result = Run({"check", "--plugin", "elsewhere", kColorPPD});
  EXPECT_EQ(0, result.status) << result.err;
  fs::rename(Prefix() / "elsewhere", Bundle());
}

TEST_F(Installed, ChangesSettings) {
  const RunResult result =
      Run({"settings", "--ppd", kColorPPD, "--ticket", "job.plist", "--set", "Valid=On"});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, HasSubstr("  Start Number: 1\n"));
  EXPECT_TRUE(fs::exists(Prefix() / "job.plist"));
}

TEST_F(Installed, LinksWithTheInstalledLibraryOnly) {
  for (const fs::path &program : {Prefix() / "bin/pdeprint", Bundle() / "BackgroundNumbering"}) {
    const RunResult result =
        RunProgram({"ldd", program.string()}, {.environment = {{"LD_LIBRARY_PATH", {}}}});
    EXPECT_EQ(0, result.status) << result.err;
    const size_t arrow = result.out.find("=> ", result.out.find("libPrintCore.so"));
    ASSERT_NE(std::string::npos, arrow) << result.out;
    const std::string library =
        result.out.substr(arrow + 3, result.out.find(' ', arrow + 3) - arrow - 3);
    EXPECT_EQ(Prefix() / "lib", fs::weakly_canonical(library).parent_path()) << result.out;
    EXPECT_THAT(result.out, Not(HasSubstr("not found")));
    EXPECT_THAT(result.out, Not(HasSubstr(BINARY_DIRECTORY)));
  }
}
