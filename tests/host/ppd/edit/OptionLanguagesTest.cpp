#include "host/ppd/edit/OptionLanguages.h"

#include <gmock/gmock.h>

#include "tests/support/MarkOptions.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string kAll = std::string(kMarkLines) + kMarkTranslations;

// The translations that are left for these languages.
std::string For(const std::string &languages, const std::string &lines = kAll) {
  const std::string result = InLanguages(languages, lines);
  EXPECT_THAT(result, StartsWith(kMarkLines));
  return result.substr(std::min(sizeof kMarkLines - 1, result.size()));
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
  EXPECT_THAT(lines, HasSubstr(Title("th", "Mark")));
  EXPECT_THAT(lines, HasSubstr("*th.MarkSize Large/Large: \"\"\n"));
  EXPECT_THAT(lines, Not(HasSubstr("*de.")));
}

TEST(OptionLanguages, ALanguageHasItsCommonRegion) {
  const std::string lines =
      kAll + Title("pt_BR", "B") + Title("pt_PT", "P") + Title("zh_CN", "C") + Title("zh_TW", "T");
  EXPECT_THAT(For("pt", lines), HasSubstr(Title("pt", "P")));
  EXPECT_THAT(For("pt_BR", lines), HasSubstr(Title("pt_BR", "B")));
  EXPECT_THAT(For("zh", lines), HasSubstr(Title("zh", "C")));
  EXPECT_THAT(For("zh_TW", lines), HasSubstr(Title("zh_TW", "T")));
}

TEST(OptionLanguages, OneRegionIsNotReadInAnother) {
  const std::string lines = kAll + Title("zh_CN", "C");
  EXPECT_THAT(For("zh_TW", lines), HasSubstr(Title("zh_TW", "Mark")));
}

TEST(OptionLanguages, NorwegianHasTwoNames) {
  EXPECT_THAT(For("no", kAll + Title("nb", "N")), HasSubstr(Title("no", "N")));
}
