// The program's messages in the user's language, with tables of the tests' own.

#include <gmock/gmock.h>

#include "tests/support/RunProgram.h"
#include "tests/support/StringsTable.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::StartsWith;

namespace {

using Arguments = std::vector<std::string>;

const char kColorPPD[] = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";
const char kBundle[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";
const Arguments kReadAbsent = {"settings", "--ppd", "/absent.ppd"};

// A copy of the program with a German and a French table, but nothing else.
class ProgramWithTables : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new TemporaryFolder;
    fs::create_directory(Folder() / "bin");
    CopyPdeprint(Folder() / "bin");
    WriteTables("bin/share/pdeprint");
  }
  static void TearDownTestSuite() {
    delete folder_;
    folder_ = nullptr;
  }

  static const fs::path &Folder() { return folder_->path(); }

  static void WriteTables(const fs::path &place) {
    folder_->Write(place / "de.lproj/pdeprint.strings",
                   Utf16(u"\"cannot read %1: %2\" = \"%2, daher %1 nicht gelesen\";\n"
                         u"\"no such file\" = \"Datei fehlt\";\n"
                         u"\"no attribute %1\" = \"Attribut %1 fehlt\";\n"
                         u"\"not a regular file\" = \"keine gewöhnliche Datei\";\n"
                         u"\"no panel for %1: %2\" = \"kein Bereich für %1: %2\";\n"));
    folder_->Write(place / "fr.lproj/pdeprint.strings",
                   Utf16(u"\"cannot read %1: %2\" = \"impossible de lire %1 : %2\";\n"));
  }

  static RunResult Run(Arguments arguments, EnvironmentChanges language) {
    language.emplace("LANGUAGE", std::nullopt);
    language.emplace("LC_ALL", std::nullopt);
    language.emplace("LC_MESSAGES", std::nullopt);
    language.emplace("LANG", std::nullopt);
    language.emplace("DISPLAY", std::nullopt);
    language.emplace("LD_LIBRARY_PATH", std::nullopt);
    arguments.insert(arguments.begin(), (Folder() / "bin/pdeprint").string());
    return RunProgram(arguments, {.environment = language});
  }

  static TemporaryFolder *folder_;
};

TemporaryFolder *ProgramWithTables::folder_ = nullptr;

const char kGerman[] = "pdeprint: Datei fehlt, daher /absent.ppd nicht gelesen\n";
const char kFrench[] = "pdeprint: impossible de lire /absent.ppd : no such file\n";
const char kEnglish[] = "pdeprint: cannot read /absent.ppd: no such file\n";

}  // namespace

TEST_F(ProgramWithTables, MessagesAreInTheLanguageOfTheEnvironment) {
  EXPECT_EQ(kGerman, Run(kReadAbsent, {{"LANGUAGE", "de"}}).err);
  EXPECT_EQ(kGerman, Run(kReadAbsent, {{"LANGUAGE", "de_AT"}, {"LC_ALL", "C"}}).err);
  EXPECT_EQ(kFrench, Run(kReadAbsent, {{"LANGUAGE", "fr:de"}, {"LANG", "de_DE.UTF-8"}}).err);
}

TEST_F(ProgramWithTables, MessagesAreEnglishWithoutATableOfTheLanguage) {
  EXPECT_EQ(kEnglish, Run(kReadAbsent, {{"LANGUAGE", "sv"}}).err);
  EXPECT_EQ(kEnglish, Run(kReadAbsent, {{"LANG", "C"}}).err);
  EXPECT_EQ(kEnglish, Run(kReadAbsent, {}).err);
}

// Which language it is where LANGUAGE is not set depends on the locales that are installed.
TEST_F(ProgramWithTables, MessagesAreInTheLanguageOfThePanels) {
  const Arguments settings = {"settings", "--plugin", kBundle, "--ppd", kColorPPD};
  const std::map<std::string, std::string> panels = {
      {kGerman, "Panel: Hintergrundnummerierung\n"},
      {kFrench, "Panel: Numérotation en arrière-plan\n"},
      {kEnglish, "Panel: Background Numbering\n"}};
  for (const EnvironmentChanges &environment :
       {EnvironmentChanges{{"LANGUAGE", "de"}, {"LANG", "fr_FR.UTF-8"}},
        EnvironmentChanges{{"LANGUAGE", "xx:fr"}, {"LC_ALL", "de_DE.UTF-8"}},
        EnvironmentChanges{{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "fr_FR.UTF-8"}},
        EnvironmentChanges{{"LC_MESSAGES", "fr_FR"}, {"LANG", "de_DE"}},
        EnvironmentChanges{{"LANG", "fr_CA"}}, EnvironmentChanges{{"LANG", "C"}}}) {
    const std::string message = Run(kReadAbsent, environment).err;
    const RunResult result = Run(settings, environment);
    EXPECT_THAT(result.out, StartsWith(panels.at(message))) << message << result.out << result.err;
  }
}

TEST_F(ProgramWithTables, ReportsStayEnglish) {
  const std::string plain = folder_->Write("plain.ppd", TestPPD::Text(kColorDevice));
  const RunResult result =
      Run({"check", "--plugin", kBundle, plain, "/dev/null"}, {{"LANGUAGE", "de"}});
  EXPECT_EQ(plain +
                ": no panel: no attribute VQBackgroundNumberingSupport\n"
                "/dev/null: cannot be read: not a regular file\n",
            result.out);
}

TEST_F(ProgramWithTables, WhatIsSaidBesideAReportIsInTheLanguage) {
  const std::string plain = folder_->Write("plain.ppd", TestPPD::Text(kColorDevice));
  const RunResult result =
      Run({"settings", "--plugin", kBundle, "--ppd", plain}, {{"LANGUAGE", "de"}});
  EXPECT_EQ(
      "pdeprint: kein Bereich für " + plain + ": Attribut VQBackgroundNumberingSupport fehlt\n",
      result.err);
}

TEST_F(ProgramWithTables, TablesAreFoundWhereTheProgramIsInstalled) {
  fs::rename(Folder() / "bin/share", Folder() / "share");
  EXPECT_EQ(kGerman, Run(kReadAbsent, {{"LANGUAGE", "de"}}).err);
  fs::rename(Folder() / "share", Folder() / "bin/share");
}
