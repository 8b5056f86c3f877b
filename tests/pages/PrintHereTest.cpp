// Numbers on the pages of jobs for queues that cannot: they are put in by this computer.

#include <gmock/gmock.h>

#include "tests/pages/PreparedServer.h"
#include "tests/pages/RasterPages.h"
#include "tests/support/Documents.h"
#include "tests/support/RawPdf.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace {

using PrintHere = UnpreparedQueues;

bool IsRed(Color color) { return color.red > color.green + 40; }
constexpr Box kMiddle = {.left = 0.2, .top = 0.3, .right = 0.8, .bottom = 0.7};

// A gray square of 8 by 8 dots.
std::string SmallPicture() { return "P5\n8 8\n255\n" + std::string(64, '\x80'); }

}  // namespace

TEST_F(PrintHere, NumbersAPdfFile) {
  Printed printed = Number({}, {File("three.pdf", PlainPdf(3))});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26", "27"));
  EXPECT_THAT(printed.text, HasSubstr("Page 3"));
  EXPECT_EQ(printed.said, "");
}

TEST_F(PrintHere, SendsPagesThatTheServerLeavesAsTheyAre) {
  Printed printed = Number({"-n", "2"}, {File("three.pdf", PlainPdf(3))});
  EXPECT_EQ(printed.job["document-format"], "application/vnd.cups-pdf");
  EXPECT_EQ(printed.job["copies"], "1");
  for (const auto &[name, value] : printed.job) EXPECT_THAT(name, Not(StartsWith("VQ")));
  ASSERT_THAT(printed.documents, SizeIs(1));
  EXPECT_EQ(printed.out, printed.documents.front());
  EXPECT_EQ(printed.job["job-name"], "three.pdf");
  EXPECT_EQ(printed.job["document-name-supplied"], "three.pdf");
}

TEST_F(PrintHere, NumbersGoOnFromFileToFile) {
  Printed printed = Number(
      {}, {File("a.pdf", PlainPdf(2)), File("b.ps", TextDocument(1)), File("c.pdf", PlainPdf(2))});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26", "27", "28", "29"));
}

TEST_F(PrintHere, NumbersText) {
  std::string lines;
  for (int line = 0; line < 100; ++line) lines += "A line of text\n";
  const std::string file = File("lines.txt", lines);
  Printed printed = Number({}, {file});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26"));
  // Nothing else is different. The converter writes no letters that programs find.
  std::string text = printed.text;
  for (const char *number : {" 25", " 26"}) text.erase(text.find(number), 3);
  EXPECT_EQ(text, Print("Pdf", {}, {file}).text);
}

TEST_F(PrintHere, NumbersPictures) {
  Printed printed = Number({"-n", "2"}, {File("a.pgm", SmallPicture())});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26"));
}

TEST_F(PrintHere, NumbersPostScript) {
  Printed printed = Number({}, {File("two.ps", TextDocument(2))});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26"));
  EXPECT_THAT(printed.text, HasSubstr("Page 2"));
}

TEST_F(PrintHere, NumbersOnARasterPrinter) {
  const std::string file = File("three.pdf", PlainPdf(3));
  const Arguments red = {"--set", "Color=Red", "--set", "Density=Dark"};
  const auto with = RasterPages(Print("Raster", kFrom25 + red, {file}).out);
  const auto without = RasterPages(Print("Raster", {}, {file}).out);
  ASSERT_THAT(with, SizeIs(3));
  ASSERT_THAT(without, SizeIs(3));
  for (size_t page = 0; page < 3; ++page) {
    EXPECT_GT(with[page].ShareOf(IsRed, kMiddle), 0.05);
    EXPECT_EQ(without[page].ShareOf(IsRed), 0);
  }
  EXPECT_NE(with[0], with[1]);
}

TEST_F(PrintHere, NumbersOnAPostScriptPrinterThatNobodyHasEnabled) {
  const Arguments red = {"--set", "Color=Red", "--set", "Density=Dark"};
  const std::string out = Print("PostScript", kFrom25 + red, {File("three.pdf", PlainPdf(3))}).out;
  EXPECT_THAT(out, StartsWith("%!PS"));
  const std::vector<Picture> pages = PicturesOf({out});
  ASSERT_THAT(pages, SizeIs(3));
  for (const Picture &page : pages) EXPECT_GT(page.ShareOf(IsRed, kMiddle), 0.05);
}

TEST_F(PrintHere, SendsTheDocumentAsItIsWhereNothingIsAskedFor) {
  const std::string pdf = PlainPdf(3);
  Printed printed = Print("Pdf", {}, {File("three.pdf", pdf)});
  EXPECT_THAT(printed.documents, ElementsAre(pdf));
  EXPECT_EQ(printed.job["document-format"], "application/pdf");
  for (const auto &[name, value] : printed.job) EXPECT_THAT(name, Not(StartsWith("VQ")));
  EXPECT_THAT(printed.numbers(), IsEmpty());
}

// Whether there is something to do is the filter's affair.
TEST_F(PrintHere, SendsTheDocumentAsItIsWhereTheFilterChangesNothing) {
  const std::string pdf = PlainPdf(3);
  Printed printed = Print("Pdf", {"--set", "StartNumber=25"}, {File("three.pdf", pdf)});
  EXPECT_THAT(printed.documents, ElementsAre(pdf));
  for (const auto &[name, value] : printed.job) EXPECT_THAT(name, Not(StartsWith("VQ")));
}

TEST_F(PrintHere, LeavesAQueueThatHasTheFilterToTheServer) {
  std::string ppd = ContentOf(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd");
  for (size_t at; (at = ppd.find("*VQBackgroundNumbering On/")) != std::string::npos;) {
    const size_t code = ppd.find('"', at), end = ppd.find("\"\n*End\n", code);
    ppd.replace(at, end + 7 - at, "*VQBackgroundNumbering  On/On: \"\"\n");
  }
  ppd +=
      "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n"
      "*cupsFilter2: \"application/vnd.cups-pdf application/pdf -1 " BINARY_DIRECTORY
      "/backgroundnumbers\"\n";
  server().AddQueue({.name = "Server", .ppd = File("server.ppd", ppd)});
  const std::string pdf = PlainPdf(3);
  Printed printed = Print("Server", kFrom25, {File("three.pdf", pdf)});
  EXPECT_THAT(printed.documents, ElementsAre(pdf));
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26", "27"));
  EXPECT_EQ(printed.job["VQStartNumber"], "25");
}
