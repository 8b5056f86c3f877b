// Which files are installed, where, and with which permissions.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/install/InstalledTree.h"

namespace fs = std::filesystem;

namespace {

// Where "LANGUAGE" stands, there is one such file for each of the languages.
constexpr const char *kFiles[] = {
    "755 bin/pdeprint",
    "644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/BackgroundNumbering",
    "644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/BackgroundNumbering.xib",
    ("644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/"
     "BackgroundNumberingRV2-SettingInfo.plist"),
    "644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/ColorDocument.ppdpart",
    "644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/ColorPrinter.ppdpart",
    "644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/Info.plist",
    "644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/MonochromeDocument.ppdpart",
    "644 lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/MonochromePrinter.ppdpart",
    ("644 "
     "lib/GNUstep/Bundles/BackgroundNumbering.plugin/Resources/LANGUAGE.lproj/Localizable.strings"),
    "755 lib/background-numbering/leave-queues",
    "755 lib/cups/filter/backgroundnumbers",
    "755 lib/cups/filter/backgroundnumbers-look",
    "755 lib/cups/filter/backgroundnumbers-pictures",
    "777 lib/libPrintCore.so.1",
    ("644 lib/libPrintCore.so." VERSION),
    "755 libexec/pdeprint-pages",
    "755 libexec/pdeprint-picture",
    "755 libexec/pdeprint-portal",
    "644 lib/systemd/user/pdeprint-portal.service",
    "644 share/dbus-1/services/org.freedesktop.impl.portal.desktop.pdeprint.service",
    "644 share/xdg-desktop-portal/portals/pdeprint.portal",
    "644 share/applications/pdeprint.desktop",
    "644 share/bash-completion/completions/pdeprint",
    "644 share/icons/hicolor/scalable/apps/pdeprint.svg",
    "644 share/man/man1/pdeprint.1",
    "644 share/pdeprint/LANGUAGE.lproj/pdeprint.strings",
    "644 share/ppd/velmora/VelmoraNumbering.ppd",
    "644 share/ppd/velmora/VelmoraNumberingMono.ppd",
    "644 share/zsh/site-functions/_pdeprint",
};

// Two languages are there twice, for GNUstep asks for them under their English names.
constexpr const char *kLanguages[] = {
    "Hebrew", "Portuguese", "ar", "cs", "da", "de", "el", "en", "es",      "fi",     "fr",
    "he",     "hr",         "hu", "id", "it", "ja", "ko", "nb", "nl",      "pl",     "pt_BR",
    "pt_PT",  "ro",         "ru", "sk", "sv", "tr", "uk", "vi", "zh-Hans", "zh-Hant"};

std::string ModeOf(const fs::path &file) {
  char text[8];
  snprintf(text, sizeof text, "%o", static_cast<unsigned>(fs::symlink_status(file).permissions()));
  return text;
}

std::string Lines(std::vector<std::string> lines) {
  std::ranges::sort(lines);
  std::string text;
  for (const std::string &line : lines) text += line + '\n';
  return text;
}

std::string ExpectedFiles() {
  std::vector<std::string> lines;
  for (const std::string line : kFiles) {
    const size_t at = line.find("LANGUAGE");
    if (at == std::string::npos) {
      lines.push_back(line);
      continue;
    }
    for (const std::string language : kLanguages) {
      lines.push_back(std::string(line).replace(at, 8, language));
    }
  }
  return Lines(lines);
}

std::string FilesWithModes(const fs::path &prefix) {
  std::vector<std::string> lines;
  for (const std::string &name : FilesBelow(prefix)) {
    lines.push_back(ModeOf(prefix / name) + ' ' + name);
  }
  return Lines(lines);
}

}  // namespace

TEST(Files, TheseAreInstalledBelowThePrefixGivenWhenInstalling) {
  EXPECT_EQ(ExpectedFiles(), FilesWithModes(InstalledTree().prefix()));
}

TEST(Files, DestdirComesBeforeThePrefixOfTheBuild) {
  const TemporaryFolder folder;
  Install(folder.path(), {});
  EXPECT_EQ(ExpectedFiles(), FilesWithModes(folder.path().string() + INSTALL_PREFIX));
}

TEST(Files, DestdirComesBeforeThePrefixGivenWhenInstalling) {
  const TemporaryFolder folder;
  Install(folder.path(), {"--prefix", "/opt/numbering"});
  EXPECT_EQ(ExpectedFiles(), FilesWithModes(folder.path() / "opt/numbering"));
}

TEST(Files, EveryOneBelongsToOneComponent) {
  std::vector<std::string> files;
  for (const char *component : {"library", "bundle", "program", "printers", "filter", "portal"}) {
    const std::vector<std::string> more = InstalledTree({"--component", component}).Files();
    EXPECT_FALSE(more.empty()) << component;
    files.insert(files.end(), more.begin(), more.end());
  }
  EXPECT_EQ(Lines(InstalledTree().Files()), Lines(files));
}

TEST(Files, TheLibraryIsFoundUnderItsSoname) {
  const InstalledTree tree;
  EXPECT_EQ("libPrintCore.so." VERSION, fs::read_symlink(tree.prefix() / "lib/libPrintCore.so.1"));
}
