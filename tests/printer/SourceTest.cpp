#include "printer/generator/Source.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/printer/SourceTree.h"

TEST(ReadPostScript, CommentsAndIndentationAreLeftOut) {
  const TemporaryFolder folder;
  EXPECT_EQ(
      "/A {\n1 add\n} def\n",
      ReadPostScript(folder.Write("a.ps", "% Why.\n/A { % number\n  % more\n  1 add\n\n} def\n")));
}

TEST(ReadPostScript, AFileThatIsNotThereIsNamed) {
  EXPECT_EQ("/nowhere/a.ps: cannot be read",
            ErrorOf([] { (void)ReadPostScript("/nowhere/a.ps"); }));
}

TEST(SourceList, WhatIsMissingOrOfTheWrongTypeIsNamed) {
  const SourceTree tree;
  const std::string file = tree.resources() / "BackgroundNumberingRV2-SettingInfo.plist";
  const SourceList list(file);
  EXPECT_EQ(file + ": has no entry Size in Nothing",
            ErrorOf([&list] { (void)list.String("Nothing", "Size"); }));
  EXPECT_EQ(file + ": has no entry Width in TicketKey",
            ErrorOf([&list] { (void)list.String("TicketKey", "Width"); }));
  EXPECT_EQ(file + ": the entry Size in PopUpItem has the wrong type",
            ErrorOf([&list] { (void)list.String("PopUpItem", "Size"); }));
}

TEST(SourceList, DamagedFilesAreNamed) {
  const TemporaryFolder folder;
  for (const char *content : {"", "<plist><dict>", "<plist><array/></plist>"}) {
    const std::string file = folder.Write("a.plist", content);
    EXPECT_EQ(file + ": cannot be read as a dictionary", ErrorOf([&file] { SourceList{file}; }))
        << content;
  }
}

TEST(Texts, LanguagesHaveTheNamesThatPPDFilesUse) {
  const std::vector<std::string> languages = SourceTree().AllTexts().Translations();
  for (const char *language : {"de", "pt", "pt_BR", "zh_CN", "zh_TW"}) {
    EXPECT_TRUE(std::ranges::count(languages, language) == 1) << language;
  }
  for (const char *language : {"", "en", "pt_PT", "zh-Hans", "zh-Hant"}) {
    EXPECT_FALSE(std::ranges::count(languages, language)) << language;
  }
}

TEST(Texts, TablesOfOneLanguageAreOne) {
  const Texts texts = SourceTree().AllTexts();
  EXPECT_EQ("Größe", texts.Text("de", "Size"));
  EXPECT_EQ("Papierformat", texts.Text("de", "PageSize"));
}
