// Several pages on a sheet side, some of the pages, another order.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

const std::vector<std::string> &Kinds() {
  static const std::vector<std::string> kinds = {TextPdf(3), TextDocument(3)};
  return kinds;
}

}  // namespace

TEST(SheetLayout, SeveralPagesOnASheetSideShareOneNumberInItsMiddle) {
  for (const std::string &document : Kinds()) {
    const PrintedJob job(On({{"number-up", "2"}}), document);
    EXPECT_EQ(job.Numbers(), "25 26");
    EXPECT_TRUE(job.Pages()[0].Says("Page 1"));
    EXPECT_TRUE(job.Pages()[0].Says("Page 2"));
    for (const PrintedPage &page : job.Pages()) ExpectInTheMiddle(page);
  }
}

TEST(SheetLayout, TheNumberOfASheetSideIsAsLargeAsThatOfAPage) {
  for (const std::string &document : Kinds()) {
    const PrintedJob two(On({{"number-up", "2"}}), document);
    const PrintedJob one(On(), document);
    EXPECT_EQ(two.Pages()[0].Number().size, one.Pages()[0].Number().size);
    EXPECT_NEAR(NumberBox(two.Pages()[0]).height(), NumberBox(one.Pages()[0]).height(), 0.005);
  }
}

TEST(SheetLayout, NumbersFollowThePrintingOrder) {
  for (const std::string &document : Kinds()) {
    const PrintedJob job(On({{"outputorder", "reverse"}}), document);
    EXPECT_EQ(job.Numbers(), "25 26 27");
    EXPECT_TRUE(job.Pages()[0].Says("Page 3"));
    EXPECT_TRUE(job.Pages()[2].Says("Page 1"));
  }
}

TEST(SheetLayout, PagesThatAreNotPrintedAreNotCounted) {
  for (const std::string &document : Kinds()) {
    const PrintedJob job(On({{"page-ranges", "2-3"}}), document);
    EXPECT_EQ(job.Numbers(), "25 26");
    EXPECT_TRUE(job.Pages()[0].Says("Page 2"));
  }
}

// As far as the protocol goes, which the filters count no further than.
TEST(SheetLayout, PagesToTheLastOneAreAllPrinted) {
  for (const std::string &document : Kinds()) {
    const PrintedJob job(On({{"page-ranges", "2-2147483647"}}), document);
    EXPECT_EQ(job.Numbers(), "25 26");
    EXPECT_TRUE(job.Pages()[0].Says("Page 2"));
    EXPECT_TRUE(job.Pages()[1].Says("Page 3"));
    EXPECT_EQ(PrintedJob(On({{"page-ranges", "1-2147483647"}}), document).Numbers(), "25 26 27");
  }
}

TEST(SheetLayout, OddPagesOnlyAreNumberedInARow) {
  for (const std::string &document : Kinds()) {
    const PrintedJob job(On({{"page-set", "odd"}}), document);
    EXPECT_EQ(job.Numbers(), "25 26");
    EXPECT_TRUE(job.Pages()[1].Says("Page 3"));
  }
}
