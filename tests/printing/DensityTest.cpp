// How much ink the number takes, and what stays legible over it.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

PrintedJob JobOfDensity(const std::string &density, const std::string &color = "Black") {
  return PrintedJob(On({{"VQBNDensity", density}, {"VQBNColor", color}}), TextPdf(2));
}

}  // namespace

TEST(NumberDensity, EachStandsOutFromWhitePaper) {
  for (const char *density : {"Light", "Medium", "Dark"}) {
    const PrintedPage &page = JobOfDensity(density).Pages().front();
    EXPECT_GE(Contrast(NumberColor(page), kWhitePaper), 1.3) << density;
  }
}

TEST(NumberDensity, EachIsClearlyDarkerThanTheOneBefore) {
  const PrintedJob jobs[] = {JobOfDensity("Light"), JobOfDensity("Medium"), JobOfDensity("Dark")};
  for (const size_t at : {1, 2}) {
    const Color lighter = NumberColor(jobs[at - 1].Pages().front());
    const Color darker = NumberColor(jobs[at].Pages().front());
    EXPECT_LT(darker.red, lighter.red);
    EXPECT_GE(Contrast(darker, lighter), 1.3);
  }
}

TEST(NumberDensity, BlackTextIsLegibleOverEachInEachColor) {
  for (const char *density : {"Light", "Medium", "Dark"}) {
    for (const char *color : {"Black", "Red", "Green", "Blue", "Cyan", "Magenta", "Yellow"}) {
      const PrintedPage &page = JobOfDensity(density, color).Pages().front();
      EXPECT_GE(Contrast(NumberColor(page), kBlackInk), 4.5) << density << ' ' << color;
    }
  }
}

TEST(NumberDensity, MediumUnlessChosen) {
  const PrintedJob job(On({{"VQBNColor", "Black"}}), TextPdf(2));
  ExpectSamePages(JobOfDensity("Medium").Pages(), job.Pages());
}

TEST(NumberDensity, ThePagesContentIsOnTopOfTheDarkest) {
  const PrintedJob numbered = JobOfDensity("Dark");
  const PrintedJob plain({}, TextPdf(2), "Plain");
  ASSERT_EQ(numbered.Pages().size(), plain.Pages().size());
  for (size_t at = 0; at < plain.Pages().size(); ++at) {
    ExpectContentUnchanged(numbered.Pages()[at], plain.Pages()[at]);
  }
}

TEST(NumberDensity, TheNumberIsSeenBetweenTheLinesOfText) {
  const PrintedPage &page = JobOfDensity("Dark").Pages().front();
  const Color number = NumberColor(page);
  const double share =
      page.picture().ShareOf([number](Color color) { return color == number; }, NumberBox(page));
  EXPECT_GE(share, 0.3);
  EXPECT_GE(page.picture().ShareOf([](Color color) { return color == kBlackInk; }, NumberBox(page)),
            0.02);
}
