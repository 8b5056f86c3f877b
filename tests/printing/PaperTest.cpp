// Paper of other sizes, and of several in one document.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

struct Paper {
  const char *name;
  int width, height;
};
constexpr Paper kPapers[] = {
    {"A5", 420, 595}, {"A4", 595, 842}, {"Letter", 612, 792}, {"A3", 842, 1191}};

std::string PageOn(int width, int height, const std::string &heading) {
  return "<</PageSize[" + std::to_string(width) + ' ' + std::to_string(height) +
         "]>>setpagedevice\n" + TextPage(heading, width, height);
}

double ShortSide(const PrintedPage &page) { return std::min(page.width, page.height); }

// Of a number of two digits.
void ExpectSizedForItsPaper(const PrintedPage &page, const PrintedPage &on_a4) {
  EXPECT_NEAR(page.Number().size / ShortSide(page), on_a4.Number().size / ShortSide(on_a4), 0.01);
  EXPECT_NEAR(NumberBox(page).width() * page.width / ShortSide(page), NumberBox(on_a4).width(),
              0.02);
  ExpectInTheMiddle(page);
}

const PrintedPage &OnA4() { return PrintedJob(On(), TextPdf(3)).Pages().front(); }

}  // namespace

TEST(Paper, TheNumberScalesWithTheShortSideInTheMiddle) {
  for (const Paper &paper : kPapers) {
    for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
      SCOPED_TRACE(paper.name);
      const PrintedPage &page =
          PrintedJob(On({{"PageSize", paper.name}}), document).Pages().front();
      EXPECT_NEAR(page.width, paper.width, 2);
      EXPECT_NEAR(page.height, paper.height, 2);
      ExpectSizedForItsPaper(page, OnA4());
    }
  }
}

TEST(Paper, ANumberOnPaperOfTheUsersOwnSizeFitsIt) {
  const PrintedPage &page =
      PrintedJob(On({{"PageSize", "Custom.300x300"}}), TextDocument(1)).Pages().front();
  EXPECT_NEAR(page.width, 300, 2);
  ExpectSizedForItsPaper(page, OnA4());
}

TEST(Paper, LandscapePagesAreNumberedUprightAsTheyAreRead) {
  const PrintedPage &page =
      PrintedJob(On(), Document({PageOn(1191, 842, "Page 1")})).Pages().front();
  EXPECT_NEAR(page.width, 1191, 2);
  EXPECT_NEAR(page.height, 842, 2);
  ExpectSizedForItsPaper(page, OnA4());
}

TEST(Paper, LongNumbersStayAwayFromTheEdgesOfPaperOfAnyShape) {
  const Settings settings = {{"VQStartNumber", "999"}, {"VQBNSize", "Large"}};
  for (const auto &[width, height] :
       {std::pair{1191, 842}, {320, 300}, {300, 320}, {300, 300}, {900, 200}, {200, 900}}) {
    // One of three digits, one of four.
    const PrintedJob job(On(settings),
                         Document({PageOn(width, height, ""), PageOn(width, height, "")}));
    for (const PrintedPage &page : job.Pages()) {
      SCOPED_TRACE(page.Number().text + " on " + std::to_string(width) + 'x' +
                   std::to_string(height));
      EXPECT_NEAR(page.width, width, 2);
      ExpectAwayFromTheEdges(page);
      ExpectInTheMiddle(page);
    }
  }
}

TEST(Paper, EachPageOfADocumentOnSeveralPapersIsNumberedForItsOwn) {
  const PrintedJob job(On(), Document({PageOn(595, 842, "Page 1"), PageOn(842, 1191, "Page 2"),
                                       PageOn(842, 595, "Page 3"), PageOn(595, 842, "Page 4")}));
  EXPECT_EQ(job.Numbers(), "25 26 27 28");
  ASSERT_EQ(job.Pages().size(), 4u);
  EXPECT_NEAR(job.Pages()[1].width, 842, 2);
  EXPECT_NEAR(job.Pages()[2].height, 595, 2);
  for (const PrintedPage &page : job.Pages()) ExpectSizedForItsPaper(page, OnA4());
}

TEST(Paper, PdfPagesOfSeveralSizesAreNumberedInARow) {
  const std::string pdf = PdfOf(Document(
      {PageOn(595, 842, "Page 1"), PageOn(842, 595, "Page 2"), PageOn(842, 1191, "Page 3")}));
  const PrintedJob job(On(), pdf);
  EXPECT_EQ(job.Numbers(), "25 26 27");
  for (const PrintedPage &page : job.Pages()) ExpectSizedForItsPaper(page, OnA4());
}
