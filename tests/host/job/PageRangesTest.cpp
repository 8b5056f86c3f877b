#include "host/job/PageRanges.h"

#include <gmock/gmock.h>

using testing::EndsWith;
using testing::StartsWith;

namespace {

// The option's value, or the reason why there is none.
std::string Pages(std::string_view text) {
  Expected<std::string> pages = ParsePageRanges(text);
  return pages ? *pages : "failure: " + pages.message();
}

std::string Copies(std::string_view text) {
  Expected<std::string> copies = ParseCopies(text);
  return copies ? *copies : "failure: " + copies.message();
}

}  // namespace

TEST(PageRanges, AreNoneForNothingButBlanks) {
  EXPECT_EQ("", Pages(""));
  EXPECT_EQ("", Pages(" \t\n"));
}

TEST(PageRanges, ArePagesAndRanges) {
  EXPECT_EQ("7", Pages("7"));
  EXPECT_EQ("2-4", Pages("2-4"));
  EXPECT_EQ("1-3,5,8-2147483647", Pages("1-3, 5, 8-"));
  EXPECT_EQ("2147483647", Pages("2147483647"));
}

TEST(PageRanges, MayHaveBlanksAndZerosAroundNumbers) {
  EXPECT_EQ("1-3,5", Pages(" 01 - 3 ,\t005 "));
}

TEST(PageRanges, OfOnePageAreThatPage) {
  EXPECT_EQ("5", Pages("5-5"));
  EXPECT_EQ("2147483647", Pages("2147483647-"));
}

TEST(PageRanges, ComeInRisingOrder) { EXPECT_EQ("1,3-4,8", Pages("8, 3-4, 1")); }

TEST(PageRanges, ThatOverlapOrFollowEachOtherBecomeOne) {
  EXPECT_EQ("1-8", Pages("1-5, 3-8"));
  EXPECT_EQ("1-9", Pages("1-9, 3-4"));
  EXPECT_EQ("1-4", Pages("1-2, 3-4"));
  EXPECT_EQ("2", Pages("2, 2"));
  EXPECT_EQ("1-2147483647", Pages("5-, 1-4, 7-"));
  EXPECT_EQ("1-2147483647", Pages("1-, 2147483647"));
  EXPECT_EQ("1-2,4", Pages("1-2, 4"));
}

TEST(PageRanges, ThatEndBeforeTheyBeginAreRefused) {
  EXPECT_EQ("failure: \"5-3\" ends before it begins; write 3-5", Pages("1, 5-3"));
}

TEST(PageRanges, CountPagesFromOne) {
  EXPECT_EQ("failure: there is no page 0; pages are counted from 1", Pages("0"));
  EXPECT_EQ("failure: there is no page 0; pages are counted from 1", Pages("0-3"));
  EXPECT_EQ("failure: there is no page 0; pages are counted from 1", Pages("1-00"));
}

TEST(PageRanges, EndAtTheLastPageThatThereCanBe) {
  EXPECT_EQ("10000", Pages("10000"));
  EXPECT_EQ("failure: page \"2147483648\" is too high; the last page can be 2147483647",
            Pages("2147483648"));
  EXPECT_EQ("failure: page \"99999999999999999999\" is too high; the last page can be 2147483647",
            Pages("1-99999999999999999999"));
}

TEST(PageRanges, WithAMissingNumberAreRefused) {
  EXPECT_EQ("failure: a page number is missing at a comma; write for example 1-3, 5, 8-",
            Pages("1,,2"));
  EXPECT_EQ("failure: a page number is missing at a comma; write for example 1-3, 5, 8-",
            Pages("1,"));
  EXPECT_EQ("failure: a page number is missing at a comma; write for example 1-3, 5, 8-",
            Pages(","));
  EXPECT_EQ(
      "failure: a page number is missing at the beginning of \"-3\"; write for example 1-3, 5, 8-",
      Pages("-3"));
  EXPECT_EQ(
      "failure: a page number is missing at the beginning of \"-\"; write for example 1-3, 5, 8-",
      Pages("-"));
}

TEST(PageRanges, AreWrittenWithDigits) {
  EXPECT_EQ("failure: \"a\" is not a page number; write for example 1-3, 5, 8-", Pages("a"));
  EXPECT_EQ("failure: \"-2\" is not a page number; write for example 1-3, 5, 8-", Pages("1--2"));
  EXPECT_EQ("failure: \"2-3\" is not a page number; write for example 1-3, 5, 8-", Pages("1-2-3"));
  EXPECT_EQ("failure: \"1 3\" is not a page number; write for example 1-3, 5, 8-", Pages("1 3"));
  EXPECT_EQ("failure: \"+3\" is not a page number; write for example 1-3, 5, 8-", Pages("+3"));
  EXPECT_EQ("failure: \"0x10\" is not a page number; write for example 1-3, 5, 8-", Pages("0x10"));
  EXPECT_EQ("failure: \"1.5\" is not a page number; write for example 1-3, 5, 8-", Pages("1.5"));
  EXPECT_EQ("failure: \"\uFF11\" is not a page number; write for example 1-3, 5, 8-",
            Pages("\uFF11"));
  EXPECT_EQ("failure: \"1\u20133\" is not a page number; write for example 1-3, 5, 8-",
            Pages("1\u20133"));
  EXPECT_NE("1", Pages(std::string_view("1\0", 2)));
}

TEST(PageRanges, CanBeMany) {
  std::string typed;
  for (int page = 9999; page > 0; page -= 2) typed += std::to_string(page) + ",";
  typed.pop_back();
  const std::string value = Pages(typed);
  EXPECT_THAT(value, StartsWith("1,3,5,7,"));
  EXPECT_THAT(value, EndsWith(",9997,9999"));
}

TEST(PageRanges, AreTypedWithoutTheLastPageThatThereCanBe) {
  EXPECT_EQ("8-", TypedPageRanges(*ParsePageRanges("8-")));
  EXPECT_EQ("1-3,8-", TypedPageRanges(*ParsePageRanges("1-3, 8-")));
  EXPECT_EQ("", TypedPageRanges(AllPages()));
  for (const std::string typed : {"", "5", "1-3,5", "2147483647", "1-9999"}) {
    EXPECT_EQ(typed, TypedPageRanges(typed));
  }
}

TEST(PageRanges, OfAllPagesAreThoseFromTheFirstOn) {
  EXPECT_EQ(AllPages(), *ParsePageRanges("1-"));
}

TEST(Copies, AreAWholeNumber) {
  EXPECT_EQ("1", Copies("1"));
  EXPECT_EQ("9999", Copies(" 9999 "));
  EXPECT_EQ("7", Copies("007"));
}

TEST(Copies, AreRefusedAsAnythingElse) {
  EXPECT_EQ("failure: the number of copies is missing; write a whole number from 1 to 9999",
            Copies(" "));
  for (const char *typed :
       {"0", "10000", "99999999999999999999", "-1", "+1", "1.5", "1 2", "two", "\uFF11", "1-2"}) {
    EXPECT_EQ(std::string("failure: \"") + typed +
                  "\" is not a number of copies; write a whole number from 1 to 9999",
              Copies(typed));
  }
}
