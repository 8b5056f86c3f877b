#include "host/ppd/edit/OptionBlocks.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace {

const std::vector<OptionBlock> kBlocks = {{"test.one", "*A: b\n*C: \"d\ne\"\n"},
                                          {"test.two", "*F: g\n"}};

BlockedPPD Split(std::string_view text) {
  Expected<BlockedPPD> ppd = SplitBlocks(text);
  if (ppd) return *ppd;
  ADD_FAILURE() << ppd.message();
  return {};
}

std::string FailureOf(std::string_view text) {
  Expected<BlockedPPD> ppd = SplitBlocks(text);
  return ppd ? "" : ppd.message();
}

std::string Replaced(std::string text, const std::string &what, const std::string &with) {
  return text.replace(text.find(what), what.size(), with);
}

const std::string kJoined = JoinBlocks({"*X: y\n", kBlocks});

}  // namespace

TEST(OptionBlocks, StandBetweenMarksBehindTheBase) {
  EXPECT_EQ(
      "*X: y\n"
      "*% BEGIN printer options of test.one, added by pdeprint\n"
      "*A: b\n*C: \"d\ne\"\n"
      "*% END printer options of test.one, added by pdeprint\n"
      "*% BEGIN printer options of test.two, added by pdeprint\n"
      "*F: g\n"
      "*% END printer options of test.two, added by pdeprint\n",
      kJoined);
}

TEST(OptionBlocks, WithoutBlocksTheBaseIsAll) { EXPECT_EQ("*X: y", JoinBlocks({"*X: y", {}})); }

TEST(OptionBlocks, SplittingGivesBackTheParts) {
  for (const char *base : {"*X: y\n", "*X: y\r\n*Z: 1\r\n", "*X: y\r*Z: 1\r", "*X: y",
                           "*X: y\r\n*Z", "*X: y\n\n", "a\r\nb\nc\r\n\r", ""}) {
    const BlockedPPD ppd = Split(JoinBlocks({base, kBlocks}));
    EXPECT_EQ(base, ppd.base);
    ASSERT_EQ(2u, ppd.blocks.size());
    for (size_t i = 0; i < 2; ++i) {
      EXPECT_EQ(kBlocks[i].bundle, ppd.blocks[i].bundle);
      EXPECT_EQ(kBlocks[i].lines, ppd.blocks[i].lines);
    }
  }
}

TEST(OptionBlocks, HaveTheLineEndsOfTheBase) {
  const std::string dos = JoinBlocks({"a\r\nb\r\n", kBlocks});
  for (size_t at = dos.find('\n'); at != std::string::npos; at = dos.find('\n', at + 1)) {
    EXPECT_EQ('\r', dos[at - 1]) << at;
  }
  EXPECT_THAT(JoinBlocks({"a\rb\r", kBlocks}), Not(HasSubstr("\n")));
}

TEST(OptionBlocks, MayStandInTheMiddle) {
  const BlockedPPD ppd = Split(kJoined + "*Z: z\n");
  EXPECT_EQ("*X: y\n*Z: z\n", ppd.base);
  EXPECT_EQ(2u, ppd.blocks.size());
}

TEST(OptionBlocks, WhatIsWrittenBehindThemKeepsALineOfItsOwn) {
  EXPECT_EQ("*X: y\n*Z: z\n", Split(JoinBlocks({"*X: y", kBlocks}) + "*Z: z\n").base);
}

TEST(OptionBlocks, WithoutAnEndAreRefused) {
  const std::string end = "*% END printer options of test.two, added by pdeprint\n";
  EXPECT_EQ(
      "the lines that pdeprint has added cannot be told from the others: there is no end to what "
      "begins on line 7; begin with the printer's own PPD file instead",
      FailureOf(Replaced(kJoined, end, "")));
  const std::string first_end = "*% END printer options of test.one, added by pdeprint\n";
  EXPECT_NE("", FailureOf(Replaced(kJoined, first_end, "")));
}

TEST(OptionBlocks, WithoutABeginningAreRefused) {
  const std::string begin = "*% BEGIN printer options of test.one, added by pdeprint\n";
  EXPECT_EQ(
      "the lines that pdeprint has added cannot be told from the others: there is no beginning to "
      "what ends on line 5; begin with the printer's own PPD file instead",
      FailureOf(Replaced(kJoined, begin, "")));
}

TEST(OptionBlocks, OfDifferentNamesAtBeginningAndEndAreRefused) {
  EXPECT_NE("", FailureOf(Replaced(kJoined, "END printer options of test.one",
                                   "END printer options of test.two")));
}

TEST(OptionBlocks, WithAnEditedMarkAreRefused) {
  EXPECT_EQ(
      "the lines that pdeprint has added cannot be told from the others: the mark was changed on "
      "line 6; begin with the printer's own PPD file instead",
      FailureOf(Replaced(kJoined, "END printer options of test.one, added by pdeprint",
                         "END printer options of test.one, added by Ann")));
}

TEST(OptionBlocks, KeepTheirMarkWithoutALineEndBehindIt) {
  EXPECT_EQ(2u, Split(kJoined.substr(0, kJoined.size() - 1)).blocks.size());
}
