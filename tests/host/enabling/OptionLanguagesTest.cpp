#include "host/enabling/OptionLanguages.h"

#include <gtest/gtest.h>

#include "tests/host/enabling/MarkOptions.h"

namespace {

const std::string kAll = std::string(kMarkLines) + kMarkTranslations;

// The translations that are left for these languages.
std::string For(const std::string &languages, const std::string &lines = kAll) {
  const std::string result = InLanguages(languages, lines);
  EXPECT_TRUE(result.starts_with(kMarkLines)) << result;
  return result.substr(std::min(sizeof kMarkLines - 1, result.size()));
}

bool Holds(const std::string &text, const std::string &part) {
  return text.find(part) != std::string::npos;
}

std::string German(const std::string &language = "de") {
  return "*" + language + ".Translation Marks/Wasserzeichen: \"\"\n*" + language +
         ".Translation Mark/Zeichen: \"\"\n*" + language + ".Mark Off/Aus: \"\"\n*" + language +
         ".Mark On/Ein: \"\"\n*" + language + ".Translation MarkSize/Gr<C3B6C39F>e: \"\"\n*" +
         language + ".MarkSize Small/Klein: \"\"\n*" + language +
         ".MarkSize Large/Gro<C39F>: \"\"\n";
}

// The first line of a language's.
std::string Title(const std::string &language, const std::string &title) {
  return "*" + language + ".Translation Mark/" + title + ": \"\"\n";
}

}  // namespace

TEST(OptionLanguages, OnlyThoseThatAreListedStay) {
  EXPECT_EQ(German(), For("de"));
  EXPECT_EQ("", For(""));
}

TEST(OptionLanguages, ARegionHasItsLanguage) {
  EXPECT_EQ(German("de_AT"), For("de_AT"));
  EXPECT_EQ(German("de") + German("de_CH"), For(" de  de_CH de"));
}

TEST(OptionLanguages, WhatATranslationLeavesOutIsUntranslated) {
  EXPECT_EQ(
      "*fr.Translation Mark/Marque: \"\"\n"
      "*fr.Translation Marks/Water Marks: \"\"\n"
      "*fr.Mark Off/Off: \"\"\n*fr.Mark On/On: \"\"\n"
      "*fr.Translation MarkSize/Size: \"\"\n"
      "*fr.MarkSize Small/Small: \"\"\n*fr.MarkSize Large/Large: \"\"\n",
      For("fr"));
}

TEST(OptionLanguages, WhatIsListedAndIsNoLanguageIsLeftOut) {
  EXPECT_EQ(German(), For("../.. de D *x a/b d"));
}

TEST(OptionLanguages, AnUnknownLanguageIsUntranslated) {
  const std::string lines = For("th");
  EXPECT_TRUE(Holds(lines, Title("th", "Mark"))) << lines;
  EXPECT_TRUE(Holds(lines, "*th.MarkSize Large/Large: \"\"\n")) << lines;
  EXPECT_FALSE(Holds(lines, "*de.")) << lines;
}

TEST(OptionLanguages, ALanguageHasItsCommonRegion) {
  const std::string lines =
      kAll + Title("pt_BR", "B") + Title("pt_PT", "P") + Title("zh_CN", "C") + Title("zh_TW", "T");
  EXPECT_TRUE(Holds(For("pt", lines), Title("pt", "P")));
  EXPECT_TRUE(Holds(For("pt_BR", lines), Title("pt_BR", "B")));
  EXPECT_TRUE(Holds(For("zh", lines), Title("zh", "C")));
  EXPECT_TRUE(Holds(For("zh_TW", lines), Title("zh_TW", "T")));
}

TEST(OptionLanguages, OneRegionIsNotReadInAnother) {
  const std::string lines = kAll + Title("zh_CN", "C");
  EXPECT_TRUE(Holds(For("zh_TW", lines), Title("zh_TW", "Mark")));
}

TEST(OptionLanguages, NorwegianHasTwoNames) {
  EXPECT_TRUE(Holds(For("no", kAll + Title("nb", "N")), Title("no", "N")));
}
