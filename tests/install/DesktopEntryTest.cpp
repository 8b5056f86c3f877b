// How desktops offer the program for documents.

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "tests/install/InstalledTree.h"

namespace fs = std::filesystem;

namespace {

class DesktopEntry : public testing::Test {
 protected:
  fs::path File() const { return tree_.prefix() / "share/applications/pdeprint.desktop"; }

  std::map<std::string, std::string> Entries() const {
    std::map<std::string, std::string> entries;
    std::istringstream text(ContentOf(File()));
    for (std::string line; std::getline(text, line);) {
      const size_t equals = line.find('=');
      if (line[0] != '#' && equals != std::string::npos) {
        entries[line.substr(0, equals)] = line.substr(equals + 1);
      }
    }
    return entries;
  }

  InstalledTree tree_;
};

// Desktops tell the two scripts of Chinese apart by their countries.
std::string LocaleOf(const std::string &language) {
  return std::regex_replace(std::regex_replace(language, std::regex("-Hans$"), "_CN"),
                            std::regex("-Hant$"), "_TW");
}

std::set<std::string> LocalesOfDialog() {
  std::set<std::string> locales;
  for (const auto &entry : fs::directory_iterator(SOURCE_DIRECTORY "/host/strings")) {
    locales.insert(LocaleOf(entry.path().stem()));
  }
  return locales;
}

}  // namespace

TEST_F(DesktopEntry, IsValid) {
  const RunResult result = RunProgram({"desktop-file-validate", File()});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.out + result.err);
}

TEST_F(DesktopEntry, HasAllLanguagesOfTheDialog) {
  const std::map<std::string, std::string> entries = Entries();
  for (const std::string key : {"Name", "Comment"}) {
    std::set<std::string> locales;
    for (const auto &[name, value] : entries) {
      EXPECT_NE("", value) << name;
      if (name.starts_with(key + '[')) {
        locales.insert(name.substr(key.size() + 1, name.size() - key.size() - 2));
      }
    }
    EXPECT_EQ(LocalesOfDialog(), locales) << key;
    EXPECT_EQ(entries.at(key), entries.at(key + "[en]"));
  }
}

TEST_F(DesktopEntry, OpensTheDialogOfTheProgramWithTheFiles) {
  EXPECT_EQ("pdeprint show --alert %F", Entries().at("Exec"));
  EXPECT_EQ(0, RunProgram({tree_.prefix() / "bin/pdeprint", "show", "--help"}).status);
}

TEST_F(DesktopEntry, HasAPictureInTheThemeOfAllDesktops) {
  const fs::path picture =
      tree_.prefix() / "share/icons/hicolor/scalable/apps" / (Entries().at("Icon") + ".svg");
  EXPECT_TRUE(ContentOf(picture).starts_with("<svg ")) << picture;
}
