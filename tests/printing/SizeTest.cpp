// How large the number is.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

PrintedJob JobOfSize(const std::string &size) {
  return PrintedJob(On({{"VQBNSize", size}}), TextPdf(3));
}

const PrintedPage &FirstPageOfSize(const std::string &size) {
  return JobOfSize(size).Pages().front();
}

}  // namespace

TEST(NumberSize, EachSizeIsAtLeastHalfAsLargeAgainAsTheOneBefore) {
  const PrintedJob jobs[] = {JobOfSize("Small"), JobOfSize("Medium"), JobOfSize("Large")};
  for (const size_t at : {1, 2}) {
    const PrintedPage &smaller = jobs[at - 1].Pages().front();
    const PrintedPage &larger = jobs[at].Pages().front();
    EXPECT_GE(larger.Number().size, 1.5 * smaller.Number().size);
    EXPECT_GE(NumberBox(larger).height(), 1.5 * NumberBox(smaller).height());
    EXPECT_GE(NumberBox(larger).width(), 1.5 * NumberBox(smaller).width());
  }
}

TEST(NumberSize, SizesOfLongNumbersDifferTooWhereAllAreLimitedByThePaper) {
  const auto job = [](const std::string &size) {
    const Settings settings = {
        {"VQBNSize", size}, {"VQStartNumber", "999"}, {"PageSize", "Custom.300x300"}};
    return PrintedJob(On(settings), TextDocument(2));
  };
  const PrintedJob jobs[] = {job("Small"), job("Medium"), job("Large")};
  for (const size_t at : {1, 2}) {
    const PrintedPage &smaller = jobs[at - 1].Pages()[1], &larger = jobs[at].Pages()[1];
    EXPECT_EQ(larger.Number().text, "1000");
    EXPECT_GE(larger.Number().size, 1.2 * smaller.Number().size);
    EXPECT_GE(NumberBox(larger).height(), 1.2 * NumberBox(smaller).height());
  }
}

TEST(NumberSize, SmallIsStillSeenFromAfar) {
  EXPECT_GE(NumberBox(FirstPageOfSize("Small")).height(), 0.1);
}

TEST(NumberSize, LargeFillsMostOfThePapersWidth) {
  EXPECT_GE(NumberBox(FirstPageOfSize("Large")).width(), 0.7);
}

TEST(NumberSize, MediumUnlessChosen) {
  const PrintedJob job(On(), TextPdf(3));
  ExpectSamePages(JobOfSize("Medium").Pages(), job.Pages());
}

TEST(NumberSize, IsTheSizeOfTheFont) {
  for (const char *size : {"Small", "Medium", "Large"}) {
    const PrintedPage &page = FirstPageOfSize(size);
    // Of a round digit of this font, which is a little higher than the others.
    const double height = NumberBox(page).height() * page.height;
    EXPECT_NEAR(height, 0.74 * page.Number().size, 0.02 * page.Number().size + 2) << size;
  }
}

TEST(NumberSize, IsTheSameOnEveryPageOfAJob) {
  for (const char *size : {"Small", "Medium", "Large"}) {
    for (const PrintedPage &page : JobOfSize(size).Pages()) {
      EXPECT_EQ(page.Number().size, FirstPageOfSize(size).Number().size) << size;
    }
  }
}

TEST(NumberSize, EachSizeIsInTheMiddleOfThePaper) {
  for (const char *size : {"Small", "Medium", "Large"}) {
    SCOPED_TRACE(size);
    for (const PrintedPage &page : JobOfSize(size).Pages()) ExpectInTheMiddle(page);
  }
}
