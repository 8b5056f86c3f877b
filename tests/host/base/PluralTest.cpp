#include "host/base/Plural.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// The forms of these numbers, with blanks between them.
std::string Forms(const std::string &language, const std::vector<size_t> &numbers) {
  std::string forms;
  for (const size_t number : numbers) {
    forms += (forms.empty() ? "" : " ") + std::string(PluralForm(language, number));
  }
  return forms;
}

}  // namespace

TEST(Plural, OfMostLanguagesKnowsOneAndOthers) {
  for (const char *language : {"en", "de", "el", "fi", "hu", "tr", "pt_PT", "unknown", ""}) {
    EXPECT_EQ("other one other other other", Forms(language, {0, 1, 2, 21, 101})) << language;
  }
}

TEST(Plural, CountsNoneAsOneInSomeLanguages) {
  for (const char *language : {"fr", "pt_BR"}) {
    EXPECT_EQ("one one other", Forms(language, {0, 1, 2})) << language;
  }
}

TEST(Plural, IsAlwaysTheSameInSomeLanguages) {
  for (const char *language : {"id", "ja", "ko", "vi", "zh-Hans", "zh-Hant"}) {
    EXPECT_EQ("other other other other", Forms(language, {0, 1, 2, 5})) << language;
  }
}

TEST(Plural, OfSlavicLanguagesHasAFormForFew) {
  for (const char *language : {"cs", "sk"}) {
    EXPECT_EQ("other one few few other other other other",
              Forms(language, {0, 1, 2, 4, 5, 12, 21, 22}))
        << language;
  }
  EXPECT_EQ("other one few few other other other few other",
            Forms("pl", {0, 1, 2, 4, 5, 12, 21, 22, 112}));
  for (const char *language : {"ru", "uk", "hr"}) {
    EXPECT_EQ("other one few few other other other one few other one",
              Forms(language, {0, 1, 2, 4, 5, 11, 12, 21, 22, 111, 121}))
        << language;
  }
}

TEST(Plural, OfRomanianCountsUpToNineteenAsFew) {
  EXPECT_EQ("few one few few other other few other", Forms("ro", {0, 1, 2, 19, 20, 100, 101, 120}));
}

TEST(Plural, OfHebrewHasAFormForTwo) {
  EXPECT_EQ("other one two other other", Forms("he", {0, 1, 2, 3, 22}));
}

TEST(Plural, OfArabicHasSixForms) {
  EXPECT_EQ("zero one two few few many many other other few many",
            Forms("ar", {0, 1, 2, 3, 10, 11, 99, 100, 102, 103, 111}));
}
