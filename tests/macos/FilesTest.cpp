#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "tests/macos/BundleUnderTest.h"

namespace fs = std::filesystem;

namespace {

std::set<std::string> FilesBelow(const fs::path &folder) {
  std::set<std::string> files;
  for (const auto &entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory()) files.insert(fs::relative(entry.path(), folder));
  }
  return files;
}

}  // namespace

// The layout is compiled where there is a compiler for it; here the file itself stands in its
// place.
TEST(Files, AreThoseOfABundleAndNoMore) {
  std::set<std::string> expected{"Info.plist",
                                 "MacOS/BackgroundNumbering",
                                 "Resources/BackgroundNumbering.xib",
                                 "Resources/BackgroundNumberingRV2-SettingInfo.plist",
                                 "Resources/ColorDocument.ppdpart",
                                 "Resources/ColorPrinter.ppdpart",
                                 "Resources/MonochromeDocument.ppdpart",
                                 "Resources/MonochromePrinter.ppdpart"};
  for (const auto &entry : fs::directory_iterator(SOURCE_DIRECTORY "/resources")) {
    if (!entry.is_directory()) continue;
    expected.insert("Resources" / entry.path().filename() / "Localizable.strings");
  }
  EXPECT_EQ(expected, FilesBelow(BundleUnderTest() / "Contents"));
}

TEST(Files, NothingLiesBesideContents) {
  EXPECT_EQ(1, std::distance(fs::directory_iterator(BundleUnderTest()), fs::directory_iterator()));
}

// PPD files name the bundle by this path, and the print system looks for PPD files in that folder.
TEST(Files, StandWhereThePlatformLooksForThem) {
  const std::string bundle = BundleUnderTest();
  EXPECT_TRUE(bundle.ends_with("/Library/Printers/Velmora/PDEs/BackgroundNumbering.plugin"))
      << bundle;
  EXPECT_EQ((std::set<std::string>{"VelmoraNumbering.ppd", "VelmoraNumberingMono.ppd"}),
            FilesBelow(BundleUnderTest() / "../../../PPDs/Contents/Resources"));
}
