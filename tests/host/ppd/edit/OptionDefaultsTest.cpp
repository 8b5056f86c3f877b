#include "host/ppd/edit/OptionDefaults.h"

#include <gtest/gtest.h>

#include "tests/support/MarkOptions.h"

namespace {

std::string Replaced(std::string text, const std::string &what, const std::string &with) {
  return text.replace(text.find(what), what.size(), with);
}

std::string WithSize(const std::string &choice) {
  return Replaced(kMarkLines, "*DefaultMarkSize: Small", "*DefaultMarkSize: " + choice);
}

}  // namespace

TEST(OptionDefaults, AreThoseOfEarlierLines) {
  EXPECT_EQ(WithSize("Large"), WithDefaultsOf(WithSize("Large"), kMarkLines, kMarkLines));
}

TEST(OptionDefaults, AreTheLinesOwnWhereTheChoiceIsGone) {
  EXPECT_EQ(kMarkLines, WithDefaultsOf(WithSize("Huge"), kMarkLines, kMarkLines));
}

TEST(OptionDefaults, AreTheLinesOwnWhereTheOptionIsNew) {
  EXPECT_EQ(kMarkLines, WithDefaultsOf("*DefaultOther: Large\n", "", kMarkLines));
}

TEST(OptionDefaults, AreTheLinesOwnWhereNobodyHasChosen) {
  EXPECT_EQ(kMarkLines, WithDefaultsOf(WithSize("Large"), WithSize("Large"), kMarkLines));
  EXPECT_EQ(WithSize("100"), WithDefaultsOf(WithSize("100"), WithSize("Large"), kMarkLines));
}
