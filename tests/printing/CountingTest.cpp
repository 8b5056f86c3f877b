// Which number each page of a job gets.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

Settings From(int number, const Settings &more = {}) {
  Settings settings = more;
  settings["VQStartNumber"] = std::to_string(number);
  return On(settings);
}

}  // namespace

TEST(Counting, PagesOfADocumentAreNumberedFromTheStartNumber) {
  EXPECT_EQ(PrintedJob(From(25), TextPdf(3)).Numbers(), "25 26 27");
  EXPECT_EQ(PrintedJob(From(25), TextDocument(3)).Numbers(), "25 26 27");
}

TEST(Counting, BeginsWithOneUnlessChosen) {
  const PrintedJob job({{"VQBackgroundNumbering", "On"}}, TextDocument(3));
  EXPECT_EQ(job.Numbers(), "1 2 3");
}

TEST(Counting, PlainTextIsNumberedToo) {
  EXPECT_EQ(PrintedJob(From(25), "first page\n\fsecond page\n").Numbers(), "25 26");
}

TEST(Counting, EachPageIsDrawnWithItsOwnNumberOnce) {
  const PrintedJob job(From(25), TextDocument(3));
  for (const PrintedPage &page : job.Pages()) EXPECT_EQ(page.NumberDrawings(), 1);
}

TEST(Counting, TheNumberIsInHelveticaBold) {
  const PrintedJob job(From(25), TextPdf(3));
  for (const PrintedPage &page : job.Pages()) EXPECT_EQ(page.Number().font, "Helvetica-Bold");
}

TEST(Counting, PagesHaveTheNumberOfTheirPlaceAndTheirOwnContent) {
  const PrintedJob job(From(25), TextDocument(3));
  ASSERT_EQ(job.Pages().size(), 3u);
  EXPECT_TRUE(job.Pages()[0].Says("Page 1"));
  EXPECT_TRUE(job.Pages()[1].Says("Page 2"));
  EXPECT_TRUE(job.Pages()[2].Says("Page 3"));
}

TEST(Counting, AnotherNumberIsAnotherPicture) {
  const PrintedJob job(From(25), TextPdf(3));
  const auto &pages = job.Pages();
  const Color number = NumberColor(pages[0]);
  int differing = 0;
  for (int y = 0; y < pages[0].picture().height(); ++y) {
    for (int x = 0; x < pages[0].picture().width(); ++x) {
      if ((pages[0].picture().at(x, y) == number) != (pages[1].picture().at(x, y) == number))
        ++differing;
    }
  }
  EXPECT_GT(differing, 200);
}

TEST(Counting, GoesOnAfter999) {
  EXPECT_EQ(PrintedJob(From(998), TextDocument(4)).Numbers(), "998 999 1000 1001");
}

TEST(Counting, NumbersOfAnyLengthStayAwayFromTheEdgesInTheMiddle) {
  for (const char *size : {"Small", "Medium", "Large"}) {
    const PrintedJob job(From(998, {{"VQBNSize", size}}), TextDocument(4));
    for (const PrintedPage &page : job.Pages()) {
      SCOPED_TRACE(std::string(size) + ' ' + page.Number().text);
      ExpectAwayFromTheEdges(page);
      ExpectInTheMiddle(page);
    }
  }
}

TEST(Counting, ALargeNumberOfFourDigitsClimbsTheDiagonalOfThePaper) {
  const PrintedJob job(From(999, {{"VQBNSize", "Large"}}), TextDocument(2));
  const PrintedPage &page = job.Pages()[1];
  EXPECT_GE(NumberBox(page).height(), 0.6);
  EXPECT_GE(NumberBox(page).width(), 0.6);
  EXPECT_LT(page.Number().begin_x, page.Number().end_x);
  EXPECT_GT(page.Number().begin_y, page.Number().end_y);
  const Color number = NumberColor(page);
  const auto share = [&](const Box &box) {
    return page.picture().ShareOf([number](Color color) { return color == number; }, box);
  };
  EXPECT_GT(share({0, 0.5, 0.5, 1}), 0.1);
  EXPECT_GT(share({0.5, 0, 1, 0.5}), 0.1);
  EXPECT_EQ(share({0, 0, 0.3, 0.3}), 0);
  EXPECT_EQ(share({0.7, 0.7, 1, 1}), 0);
}

TEST(Counting, TheLastOfManyPagesHasTheLastNumber) {
  std::vector<std::string> pages(120, "72 72 moveto 100 0 rlineto stroke");
  const PrintedJob job(From(999), Document(pages));
  ASSERT_EQ(job.Pages().size(), 120u);
  EXPECT_EQ(job.Pages().back().Number().text, "1118");
}
