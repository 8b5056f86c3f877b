// The number behind the page's content and over it.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

const Settings kOver = {{"VQBNPlacement", "Over"}};

// Text on an image of white paper, as scanners make it.
std::string ScannedPage() {
  return "gsave 595 842 scale 1 1 8 [1 0 0 1 0 0] {<ff>} image grestore\n" + TextPage("Page 1");
}

const std::string &Scan() {
  static const std::string pdf =
      PdfOf("<</PageSize[595 842]>>setpagedevice\n" + Document({ScannedPage(), ScannedPage()}));
  return pdf;
}

bool IsBlack(Color color) { return color == kBlackInk; }
bool IsWhite(Color color) { return color == kWhitePaper; }

}  // namespace

TEST(Placement, BehindAnOpaquePageTheNumberIsHidden) {
  const PrintedJob job(On({{"VQBNPlacement", "Behind"}}), Scan());
  EXPECT_EQ(job.Numbers(), "25 26");
  for (const PrintedPage &page : job.Pages()) EXPECT_FALSE(page.picture().MainColor());
}

TEST(Placement, OverAnOpaquePageTheNumberIsSeenInTheMiddle) {
  const PrintedJob job(On(kOver), Scan());
  EXPECT_EQ(job.Numbers(), "25 26");
  for (const PrintedPage &page : job.Pages()) {
    EXPECT_GE(Contrast(NumberColor(page), kWhitePaper), 1.3);
    const Color number = NumberColor(page);
    const double share =
        page.picture().ShareOf([number](Color color) { return color == number; }, NumberBox(page));
    EXPECT_GE(share, 0.1);
    ExpectInTheMiddle(page);
  }
}

TEST(Placement, BehindUnlessChosen) {
  const PrintedJob behind(On({{"VQBNPlacement", "Behind"}}), TextPdf(3));
  const PrintedJob unless_chosen(On(), TextPdf(3));
  ExpectSamePages(behind.Pages(), unless_chosen.Pages());
}

TEST(Placement, MostOfTheTextUnderANumberOverItStaysBlack) {
  for (const char *density : {"Light", "Medium", "Dark"}) {
    const PrintedJob plain({}, TextPdf(3));
    const PrintedJob over(On({{"VQBNPlacement", "Over"}, {"VQBNDensity", density}}), TextPdf(3));
    const Box box = NumberBox(over.Pages().front());
    const double before = plain.Pages().front().picture().ShareOf(IsBlack, box);
    const double after = over.Pages().front().picture().ShareOf(IsBlack, box);
    EXPECT_GT(before, 0.05) << density;
    EXPECT_GE(after, 0.7 * before) << density;
    EXPECT_LT(after, before) << "not over the text";
  }
}

TEST(Placement, ANumberOverThePageLetsMoreThanHalfOfItThroughEverywhere) {
  // Small paper, so that there are not too many pixels at a resolution that shows the stripes.
  const Settings settings = {{"VQBNSize", "Large"}, {"PageSize", "Custom.200x280"}};
  const std::string blank = Document({"newpath"});
  const PrintedJob behind_job(On(settings), blank);
  Settings settings_over = settings;
  settings_over.merge(Settings(kOver));
  const PrintedJob over_job(On(settings_over), blank);
  const std::vector<PrintedPage> behind_pages = PagesOf(behind_job.Output(), 288);
  const std::vector<PrintedPage> over_pages = PagesOf(over_job.Output(), 288);
  ASSERT_EQ(behind_pages.size(), 1u);
  ASSERT_EQ(over_pages.size(), 1u);
  const Picture &behind = behind_pages.front().picture();
  const Picture &over = over_pages.front().picture();
  constexpr int kSide = 24;  // of the squares to look at, in pixels
  int squares = 0;
  for (int top = 0; top + kSide <= behind.height(); top += kSide) {
    for (int left = 0; left + kSide <= behind.width(); left += kSide) {
      const double width = behind.width(), height = behind.height();
      const Box square = {left / width, top / height, (left + kSide) / width,
                          (top + kSide) / height};
      if (behind.ShareOf(IsWhite, square) > 0) continue;
      ++squares;
      EXPECT_GE(over.ShareOf(IsWhite, square), 0.5) << left << ' ' << top;
      EXPECT_LE(over.ShareOf(IsWhite, square), 0.75) << left << ' ' << top;
    }
  }
  EXPECT_GE(squares, 30);
}

TEST(Placement, WhatIsLeftOfANumberOverThePageIsStrongerThanTheNumberBehindIt) {
  for (const char *density : {"Light", "Medium", "Dark"}) {
    const PrintedJob over(On({{"VQBNPlacement", "Over"}, {"VQBNDensity", density}}), TextPdf(3));
    const PrintedJob behind(On({{"VQBNDensity", density}}), TextPdf(3));
    EXPECT_LT(NumberColor(over.Pages().front()).red, NumberColor(behind.Pages().front()).red - 10)
        << density;
  }
}

TEST(Placement, TheNumberHasTheSameTextAndExtentOverThePageAndBehindIt) {
  const PrintedJob over(On(kOver), TextPdf(3));
  const PrintedJob behind(On(), TextPdf(3));
  ASSERT_EQ(over.Pages().size(), behind.Pages().size());
  for (size_t at = 0; at < over.Pages().size(); ++at) {
    EXPECT_EQ(over.Pages()[at].Number(), behind.Pages()[at].Number());
    const Box one = NumberBox(over.Pages()[at]), other = NumberBox(behind.Pages()[at]);
    EXPECT_NEAR(one.left, other.left, 0.01);
    EXPECT_NEAR(one.top, other.top, 0.01);
    EXPECT_NEAR(one.right, other.right, 0.01);
    EXPECT_NEAR(one.bottom, other.bottom, 0.01);
  }
}

TEST(Placement, NumbersOverPagesCountAsThoseBehindThem) {
  const Settings copies = {{"copies", "2"},
                           {"multiple-document-handling", "separate-documents-collated-copies"},
                           {"VQBNPlacement", "Over"}};
  EXPECT_EQ(PrintedJob(On(copies), TextPdf(3)).Numbers(), "25 26 27 28 29 30");
  EXPECT_EQ(PrintedJob(On(kOver), TextDocument(3)).Numbers(), "25 26 27");
}

TEST(Placement, ANumberOverThePageHasItsColor) {
  const PrintedPage &page =
      PrintedJob(On({{"VQBNPlacement", "Over"}, {"VQBNColor", "Red"}}), TextPdf(3)).Pages().front();
  const Color color = NumberColor(page);
  EXPECT_EQ(color.red, 255);
  EXPECT_EQ(color.green, color.blue);
  EXPECT_LE(color.green, 225);
}
