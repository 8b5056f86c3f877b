#include "host/base/NameOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "host/base/Localized.h"

namespace {

using Names = std::vector<std::string>;

Names Sorted(Names names) {
  std::ranges::sort(names, NameComesBefore);
  return names;
}

Names SortedIn(const std::string &language, const Names &names) {
  const Translation translation = {{"en", language}};
  const TextsOf texts(&translation);
  return Sorted(names);
}

}  // namespace

TEST(NameOrder, LettersOfEitherCaseStandSideBySide) {
  EXPECT_EQ((Names{"a", "A", "ab", "Ab", "b", "C"}), Sorted({"C", "b", "Ab", "A", "ab", "a"}));
}

TEST(NameOrder, DigitsGoByTheirValue) {
  EXPECT_EQ((Names{"9", "10", "Draft 2", "Draft 10", "x2y", "x10y"}),
            Sorted({"Draft 10", "10", "x10y", "Draft 2", "x2y", "9"}));
}

TEST(NameOrder, IsThatOfTheLanguage) {
  const Names names = {"Zettel", "Ärger", "Apfel"};
  EXPECT_EQ((Names{"Apfel", "Ärger", "Zettel"}), SortedIn("de", names));
  EXPECT_EQ((Names{"Apfel", "Zettel", "Ärger"}), SortedIn("sv", names));
  EXPECT_EQ((Names{"cz", "č", "d"}), SortedIn("cs", {"č", "d", "cz"}));
}

TEST(NameOrder, IsThereInAllLanguages) {
  for (const std::string language : {"zh-Hans", "zh-Hant", "pt_BR", "he", "Klingon", ""}) {
    EXPECT_EQ((Names{"a 2", "a 10"}), SortedIn(language, {"a 10", "a 2"})) << language;
  }
}

TEST(NameOrder, OfTwoNamesOneComesBeforeTheOther) {
  const Names names = {"Draft 2", "Draft 02", "draft 2", "é",  "e\u0301", "a\u0308", "ä",
                       "\u200B",  "",         "😀",       "😀😀", "日本",    "ﬁ",       "fi",
                       "١٢",      "12",       "ß",       "ss", "SS"};
  for (const std::string &name : names) {
    EXPECT_FALSE(NameComesBefore(name, name)) << name;
    for (const std::string &other : names) {
      if (name == other) continue;
      EXPECT_NE(NameComesBefore(name, other), NameComesBefore(other, name))
          << name << ", " << other;
    }
  }
}
