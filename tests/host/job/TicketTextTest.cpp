#include "host/job/TicketText.h"

#include <gtest/gtest.h>

namespace {

std::string Nested(int levels) {
  std::string text = "<plist>";
  for (int level = 0; level < levels; ++level) text += "<array>";
  for (int level = 0; level < levels; ++level) text += "</array>";
  return text + "</plist>";
}

}  // namespace

TEST(TicketText, AnXmlPropertyListMayBeATicket) {
  EXPECT_EQ(std::nullopt, ReasonAgainstTicketText("<?xml version=\"1.0\"?><plist><dict/></plist>"));
}

TEST(TicketText, NothingIsNone) { EXPECT_EQ("the file is empty", ReasonAgainstTicketText("")); }

TEST(TicketText, OtherFormatsAreNone) {
  EXPECT_EQ("there is no <plist> in it", ReasonAgainstTicketText("{ VQBNSize = Large; }"));
}

TEST(TicketText, DeepNestingIsRefusedBeforeTheParserDescends) {
  EXPECT_EQ(std::nullopt, ReasonAgainstTicketText(Nested(100)));
  EXPECT_EQ("it is nested deeper than 100 levels", ReasonAgainstTicketText(Nested(101)));
  EXPECT_EQ("it is nested deeper than 100 levels", ReasonAgainstTicketText(Nested(50000)));
}

TEST(TicketText, ManyCollectionsBesideEachOtherAreNotDeep) {
  std::string text = "<plist><array>";
  for (int item = 0; item < 200; ++item) text += "<dict/><array></array>";
  EXPECT_EQ(std::nullopt, ReasonAgainstTicketText(text + "</array></plist>"));
}

TEST(TicketText, WhatIsTooLargeIsRefused) {
  EXPECT_EQ("the file is larger than 1 MiB",
            ReasonAgainstTicketText(std::string(kLargestTicket + 1, ' ')));
}

TEST(TicketText, AByteOrderMarkIsTakenAway) {
  EXPECT_EQ("<plist>", WithoutByteOrderMark("\xEF\xBB\xBF<plist>"));
  EXPECT_EQ("<plist>", WithoutByteOrderMark("<plist>"));
}

TEST(TicketText, TagsInCommentsAndTextDoNotHideDepth) {
  std::string hiding = "<plist><!-- ";
  for (int i = 0; i < 200; ++i) hiding += "</array>";
  hiding += " --><![CDATA[</array></array>]]>";
  for (int i = 0; i < 101; ++i) hiding += "<array>";
  EXPECT_TRUE(ReasonAgainstTicketText(hiding));
}
