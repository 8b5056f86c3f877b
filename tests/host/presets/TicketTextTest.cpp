#include "host/presets/TicketText.h"

#include <gtest/gtest.h>

namespace {

std::string Repeated(const std::string &text, int times) {
  std::string result;
  for (int time = 0; time < times; ++time) result += text;
  return result;
}

std::string Nested(int levels, const std::string &open = "<array>") {
  return "<plist>" + Repeated(open, levels) + Repeated("</array>", levels) + "</plist>";
}

constexpr char kDeep[] = "it is nested deeper than 100 levels";
constexpr char kDamaged[] = "the file is damaged or cut off";

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
  const std::string closing = Repeated("</array>", 200);
  const std::string hiding = "<plist><!-- " + closing + " --><array><![CDATA[" + closing + "]]>" +
                             Repeated("<array>", 100) + Repeated("</array>", 101) + "</plist>";
  EXPECT_EQ(kDeep, ReasonAgainstTicketText(hiding));
}

TEST(TicketText, AttributesDoNotHideDepth) {
  EXPECT_EQ(kDeep, ReasonAgainstTicketText(Nested(101, "<array a=\"/>\">")));
  EXPECT_EQ(kDeep, ReasonAgainstTicketText(Nested(101, "<array a='/'\n>")));
}

TEST(TicketText, EmptyElementsAreNotDeep) {
  EXPECT_EQ(std::nullopt,
            ReasonAgainstTicketText("<plist><array>" + Repeated("<dict a=\"b\"/><array />", 200) +
                                    "</array></plist>"));
}

TEST(TicketText, TheUsualDocumentTypeIsTaken) {
  const std::string type =
      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";
  EXPECT_EQ(std::nullopt, ReasonAgainstTicketText(type + Nested(100)));
  EXPECT_EQ(kDeep, ReasonAgainstTicketText(type + Nested(101)));
}

// With them, comments and tags might begin and end elsewhere than it seems.
TEST(TicketText, DeclarationsOfMarkupAreRefused) {
  for (const std::string type :
       {"[<!ENTITY a \"<!--\">]", "[]", "SYSTEM \"<!--\"", "SYSTEM '\"' [<?\"'?>]"}) {
    EXPECT_EQ(kDamaged, ReasonAgainstTicketText("<!DOCTYPE plist " + type + ">" + Nested(1)));
  }
}

TEST(TicketText, WhatIsNotWellFormedIsRefused) {
  for (const std::string text :
       {"<plist>", "<plist><dict></plist></dict>", "</dict><plist/>", "<plist/><plist/>",
        "dict><plist/>", "<plist/>rest", "<plist a=\"/>", "<plist a=<>/>",
        "<plist>< dict/></plist>", "<plist><!-- </plist>", "<plist><![CDATA[ </plist>",
        "<![CDATA[ ]]><plist/>", "<plist><? </plist>", "<plist><? <dict> ?></plist>",
        "<plist><? > <dict> ?></plist>", "<plist><!DOCTYPE plist></plist>",
        "<plist><d/ict></d/ict></plist>", "<plist></></plist>", "<plist"}) {
    EXPECT_EQ(kDamaged, ReasonAgainstTicketText(text)) << text;
  }
}

TEST(TicketText, TheParserIsToldUtf8WhateverTheTextSays) {
  const std::string expected = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist/>";
  for (const std::string text : {"<plist/>", " \r\n<?xml version=\"1.0\"?><plist/>",
                                 "<?xml version='1.1' encoding='UTF-7'?><plist/>"}) {
    EXPECT_EQ(expected, WithUtf8Declaration(text));
  }
}
