#include "numbering/pdf/ContentScanner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using numbering::ContentScanner;

namespace {

// One stream, in parts of this size.
ContentScanner Scanned(const std::string &content, size_t part = 1000) {
  ContentScanner scanner;
  for (size_t at = 0; at < content.size(); at += part) scanner.Take(content.substr(at, part));
  scanner.EndStream();
  return scanner;
}

}  // namespace

TEST(ContentScanner, EndsWhatThePageHasBegun) {
  EXPECT_EQ(Scanned("q Q q q 1 0 0 1 0 0 cm Q").Closing(), "Q ");
  EXPECT_EQ(Scanned("q BT /F 1 Tf (x) Tj").Closing(), "ET Q ");
  EXPECT_EQ(Scanned("/OC /Layer BDC q /X BMC EMC").Closing(), "EMC Q ");
  EXPECT_EQ(Scanned("BT ET EMC EMC").Closing(), "");
}

TEST(ContentScanner, FindsRestoresOfWhatWasNotSaved) {
  EXPECT_EQ(Scanned("Q q Q Q").excess_restores(), 2u);
  EXPECT_EQ(Scanned("Q q Q Q q").Closing(), "Q ");
}

TEST(ContentScanner, SaysWhereTheyStand) {
  const std::string content = "(Q) Q q Q BI ID EI Q q Q Q [Q] Q";
  for (const size_t part : {size_t{1}, size_t{5}, content.size()}) {
    std::vector<size_t> places;
    ContentScanner scanner([&](size_t at) { places.push_back(at); });
    for (size_t at = 0; at < content.size(); at += part) scanner.Take(content.substr(at, part));
    scanner.EndStream();
    EXPECT_EQ(places, (std::vector<size_t>{4, 19, 25, 31})) << part;
  }
}

TEST(ContentScanner, WordsWithinOperandsAreNone) {
  for (const char *content :
       {"(q q \\) q (q) q) Tj", "/q /q gs", "[(q) q] TJ", "<71> Tj", "% q q\n", "/P << /q q >> DP",
        "/P << /A << /q q >> /B q >> DP", "qq q1 /a/q", "(a\\\\) Tj"}) {
    const ContentScanner scanner = Scanned(content);
    EXPECT_EQ(scanner.Closing(), "") << content;
    EXPECT_TRUE(scanner.IsSound()) << content;
  }
}

TEST(ContentScanner, WordsEndWhereOperandsBegin) {
  EXPECT_EQ(Scanned("q[1]0 d").Closing(), "Q ");
  EXPECT_EQ(Scanned("(x)q%Q\nq<00>Q").Closing(), "Q ");
}

TEST(ContentScanner, AnImageHidesWhatLooksLikeWords) {
  const std::string image = std::string("q BI /W 2 ID q q EI\x01 Q q \xff Q EI ");
  EXPECT_EQ(Scanned(image + "Q").Closing(), "");
  EXPECT_EQ(Scanned(image + "q q Q Q Q q q 1 0 0 1 0 0 cm").Closing(), "Q Q ");
  EXPECT_EQ(Scanned(image).Closing(), "Q ");
  EXPECT_TRUE(Scanned(image).IsSound());
}

TEST(ContentScanner, WhatNeverEndsIsNotSound) {
  EXPECT_EQ(Scanned("q (abc").sound_size(), 2u);
  EXPECT_EQ(Scanned("q [ (abc) 1").sound_size(), 2u);
  EXPECT_EQ(Scanned("q <12").sound_size(), 2u);
  EXPECT_EQ(Scanned("q BI /W 1 ID \x01\x02").sound_size(), 2u);
  EXPECT_EQ(Scanned("q BI /W 1").sound_size(), 2u);
}

TEST(ContentScanner, PartsMayEndAnywhere) {
  const std::string content =
      "q (a\\)b) Tj << /A <41> >> BI /W 1 ID \x01 EI q\xff EI Q Q q BT % q\n[ (x) ] TJ Q Q";
  const ContentScanner whole = Scanned(content);
  for (size_t part = 1; part < content.size(); ++part) {
    const ContentScanner scanner = Scanned(content, part);
    EXPECT_EQ(scanner.Closing(), whole.Closing()) << part;
    EXPECT_EQ(scanner.excess_restores(), whole.excess_restores()) << part;
    EXPECT_EQ(scanner.sound_size(), whole.sound_size()) << part;
    EXPECT_EQ(scanner.size(), content.size() + 1) << part;
  }
  EXPECT_EQ(whole.excess_restores(), 2u);
}

TEST(ContentScanner, NoWordGoesOnInTheNextStream) {
  ContentScanner scanner;
  scanner.Take("B");
  scanner.EndStream();
  scanner.Take("T q");
  scanner.EndStream();
  EXPECT_EQ(scanner.Closing(), "Q ");
}
