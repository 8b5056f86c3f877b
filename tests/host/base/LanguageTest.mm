#include "host/base/Language.h"

#include "tests/support/ObjCTest.h"
#include "tests/support/StringsTable.h"
#include "tests/support/TemporaryFolder.h"

OBJC_TEST(Language, TablesAreBesideTheProgramOrWhereItIsInstalled) {
  const std::filesystem::path here = BINARY_DIRECTORY "/tests/host";
  const std::vector<std::filesystem::path> expected = {here / "share/pdeprint",
                                                       here.parent_path() / "share/pdeprint"};
  EXPECT_EQ(expected, StringsFolders());
}

OBJC_TEST(Language, TheTableIsReadWhole) {
  const TemporaryFolder folder;
  folder.Write(
      "en.lproj/pdeprint.strings",
      Utf16(u"/* Buttons */\n\"Print\" = \"Größe → 印\";\n\"a\\nb\" = \"\\\"c\\\"\\nd\";\n"));
  const Translation expected = {{"Print", "Größe → 印"}, {"a\nb", "\"c\"\nd"}};
  EXPECT_EQ(expected, TranslationIn(folder.path()));
}

OBJC_TEST(Language, WithoutATableThereIsNoTranslation) {
  const TemporaryFolder folder;
  EXPECT_EQ(Translation(), TranslationIn(folder.path()));
  EXPECT_EQ(Translation(), TranslationIn(folder.path() / "absent"));
}

OBJC_TEST(Language, ADamagedTableIsNoTranslation) {
  const TemporaryFolder folder;
  folder.Write("en.lproj/pdeprint.strings", Utf16(u"\"Print\" = \"Drucken\";\n\"Cancel\" = \"Abb"));
  EXPECT_EQ(Translation(), TranslationIn(folder.path()));
}

OBJC_TEST(Language, TheTableOfAnotherLanguageIsNotTaken) {
  const TemporaryFolder folder;
  folder.Write("fr.lproj/pdeprint.strings", Utf16(u"\"Print\" = \"Imprimer\";\n"));
  EXPECT_EQ(Translation(), TranslationIn(folder.path()));
}

OBJC_TEST(Language, EnglishHasWordsForOneAndForSeveral) {
  const Translation english = TranslationIn(BINARY_DIRECTORY "/share/pdeprint");
  const TextsOf texts(&english);
  const auto pages = [](size_t pages, size_t sheets) {
    return LocalizedCount("of %2 pages, %1", {LocalizedCount("%1 sheets", {}, sheets)}, pages);
  };
  EXPECT_EQ("of 1 page, 1 sheet", pages(1, 1));
  EXPECT_EQ("of 12 pages, 6 sheets", pages(12, 6));
}
