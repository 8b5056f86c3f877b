#include "host/presets/TicketText.h"

#include <gtest/gtest.h>

#include "tests/support/ExpectedValue.h"

namespace {

std::string Repeated(const std::string &text, int times) {
  std::string result;
  for (int time = 0; time < times; ++time) result += text;
  return result;
}

std::string Nested(int levels, const std::string &open = "<array>") {
  return "<plist>" + Repeated(open, levels) + Repeated("</array>", levels) + "</plist>";
}

// Why the text is no ticket; "" if it may be one.
std::string Reason(const std::string &text) { return MessageOf(TicketDocument(text)); }

std::string DocumentFor(const std::string &text) {
  Expected<std::string> document = TicketDocument(text);
  return document ? *document : "refused: " + document.message();
}

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr char kDeep[] = "it is nested deeper than 100 levels";
constexpr char kDamaged[] = "the file is damaged or cut off";

}  // namespace

TEST(TicketText, AnXmlPropertyListMayBeATicket) {
  EXPECT_EQ("", Reason("<?xml version=\"1.0\"?><plist><dict/></plist>"));
}

TEST(TicketText, NothingIsNone) { EXPECT_EQ("the file is empty", Reason("")); }

TEST(TicketText, OtherFormatsAreNone) {
  EXPECT_EQ("there is no <plist> in it", Reason("{ VQBNSize = Large; }"));
}

TEST(TicketText, DeepNestingIsRefusedBeforeTheParserDescends) {
  EXPECT_EQ("", Reason(Nested(100)));
  EXPECT_EQ("it is nested deeper than 100 levels", Reason(Nested(101)));
  EXPECT_EQ("it is nested deeper than 100 levels", Reason(Nested(50000)));
}

TEST(TicketText, ManyCollectionsBesideEachOtherAreNotDeep) {
  std::string text = "<plist><array>";
  for (int item = 0; item < 200; ++item) text += "<dict/><array></array>";
  EXPECT_EQ("", Reason(text + "</array></plist>"));
}

TEST(TicketText, WhatIsTooLargeIsRefused) {
  EXPECT_EQ("the file is larger than 1 MiB", Reason(std::string(kLargestTicket + 1, ' ')));
}

TEST(TicketText, AByteOrderMarkIsTakenAway) {
  EXPECT_EQ(std::string(kDeclaration) + "<plist/>", DocumentFor("\xEF\xBB\xBF<plist/>"));
}

TEST(TicketText, TagsInCommentsAndTextDoNotHideDepth) {
  const std::string closing = Repeated("</array>", 200);
  const std::string hiding = "<plist><!-- " + closing + " --><array><![CDATA[" + closing + "]]>" +
                             Repeated("<array>", 100) + Repeated("</array>", 101) + "</plist>";
  EXPECT_EQ(kDeep, Reason(hiding));
}

TEST(TicketText, AttributesDoNotHideDepth) {
  EXPECT_EQ(kDeep, Reason(Nested(101, "<array a=\"/>\">")));
  EXPECT_EQ(kDeep, Reason(Nested(101, "<array a='/'\n>")));
}

TEST(TicketText, EmptyElementsAreNotDeep) {
  EXPECT_EQ("", Reason("<plist><array>" + Repeated("<dict a=\"b\"/><array />", 200) +
                       "</array></plist>"));
}

TEST(TicketText, TheUsualDocumentTypeIsTaken) {
  const std::string type =
      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";
  EXPECT_EQ("", Reason(type + Nested(100)));
  EXPECT_EQ(kDeep, Reason(type + Nested(101)));
}

// With them, comments and tags might begin and end elsewhere than it seems.
TEST(TicketText, DeclarationsOfMarkupAreRefused) {
  for (const std::string type : {"[<!ENTITY a \"<!--\">]", "[<!-- -->]", "[<?x?>]",
                                 "SYSTEM \"<!--\"", "SYSTEM '\"' [<?\"'?>]"}) {
    EXPECT_EQ(kDamaged, Reason("<!DOCTYPE plist " + type + ">" + Nested(1)));
  }
}

// Behind a quotation mark in one the parser sees no tags until the next.
TEST(TicketText, InstructionsAreRefused) {
  for (const std::string instruction : {"<?x?>", "<?x y?>", "<?x > ?>", "<?x '?>"}) {
    EXPECT_EQ(kDamaged, Reason(instruction + Nested(1)));
    EXPECT_EQ(kDamaged, Reason("<plist>" + instruction + "</plist>"));
  }
}

TEST(TicketText, EntitiesAreXmlsOwn) {
  EXPECT_EQ("", Reason("<plist><string>&lt;&amp;&#65;&gt;</string></plist>"));
  for (const std::string type : {"", "<!DOCTYPE plist SYSTEM \"a\">"}) {
    EXPECT_EQ(kDamaged, Reason(type + "<plist><string>&a;</string></plist>"));
  }
}

TEST(TicketText, NothingIsFetched) {
  EXPECT_EQ("", Reason("<!DOCTYPE plist SYSTEM \"file:///absent.dtd\">" + Nested(1)));
}

TEST(TicketText, WhatIsNotWellFormedIsRefused) {
  for (const std::string text :
       {"<plist>", "<plist><dict></plist></dict>", "</dict><plist/>", "<plist/><plist/>",
        "dict><plist/>", "<plist/>rest", "<plist a=\"/>", "<plist a=<>/>",
        "<plist>< dict/></plist>", "<plist><!-- </plist>", "<plist><![CDATA[ </plist>",
        "<![CDATA[ ]]><plist/>", "<plist><? </plist>", "<plist><? <dict> ?></plist>",
        "<plist><? > <dict> ?></plist>", "<plist><!DOCTYPE plist></plist>",
        "<plist><d/ict></d/ict></plist>", "<plist></></plist>", "<plist"}) {
    EXPECT_EQ(kDamaged, Reason(text)) << text;
  }
}

TEST(TicketText, TheParserIsToldUtf8WhateverTheTextSays) {
  const std::string expected = std::string(kDeclaration) + "<plist/>";
  for (const std::string text : {"<plist/>", " \r\n<?xml version=\"1.0\"?><plist/>",
                                 "<?xml version='1.1' encoding='UTF-7'?><plist/>"}) {
    EXPECT_EQ(expected, DocumentFor(text));
  }
}
