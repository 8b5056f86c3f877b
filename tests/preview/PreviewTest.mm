// The preview in the dialog, worked with keys and the mouse.

#include <gmock/gmock.h>

#include "host/dialog/RememberedPreview.h"
#import "tests/preview/SeenPages.h"
#include "tests/support/Documents.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/RawPdf.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr char kAll[] = "of 3 pages, 3 sheets";

// The middle of what is red, and how large that is.
Box Number(const Picture &page) { return page.BoundsOf(IsRed).value_or(Box{0, 0, 0, 0}); }

void ExpectSamePlace(const Picture &seen, const Picture &printed) {
  const Box one = Number(seen), other = Number(printed);
  constexpr double kPixel = 0.01;
  EXPECT_NEAR(one.left, other.left, kPixel);
  EXPECT_NEAR(one.right, other.right, kPixel);
  EXPECT_NEAR(one.top, other.top, kPixel);
  EXPECT_NEAR(one.bottom, other.bottom, kPixel);
  EXPECT_NEAR(seen.ShareOf(IsRed), printed.ShareOf(IsRed), 0.01);
}

int PageOf(const SeenPages &pages) { return [[[pages.preview() page] stringValue] intValue]; }

void AwaitPage(const SeenPages &pages, int page) {
  HandleEventsUntil([&] { return PageOf(pages) == page; });
  EXPECT_EQ(PageOf(pages), page);
}

}  // namespace

OBJC_TEST(Preview, FollowsWhatIsChosenBeforeItIsTheJobs) {
  SeenPages pages;
  pages.AwaitPages(kAll);
  EXPECT_EQ(pages.Red(), 0);
  pages.SwitchOnInRed();
  EXPECT_EQ(*pages.screen().session().Value("VQBackgroundNumbering"), "Off");
  KeepPicture(pages.screen().view(), "preview");
}

OBJC_TEST(Preview, FollowsDigitsThatAreTyped) {
  SeenPages pages;
  pages.SwitchOnInRed();
  const double one = pages.Red();
  [pages.screen().dialog().window() makeFirstResponder:pages.outlet(@"textBoxStartNumber")];
  TypeText("888");
  pages.AwaitRed([one](double red) { return red > 1.5 * one; });
}

OBJC_TEST(Preview, FollowsTheOrderOfDocuments) {
  const TemporaryFolder folder;
  const auto red = folder.Write("red.ps", Document({"1 0 0 setrgbcolor 100 100 300 300 rectfill"}));
  SeenPages pages({.more_documents = {red}, .preview = true});
  pages.AwaitPages("of 4 pages, 4 sheets");
  EXPECT_EQ(pages.Red(), 0);
  pages.screen().ShowPanel(@"Documents");
  PressKeys({"Tab", "Down", "alt+Up"});
  pages.AwaitRed([](double share) { return share > 0.1; });
  PressKeys({"Delete"});
  pages.AwaitPages(kAll);
  EXPECT_EQ(pages.Red(), 0);
}

OBJC_TEST(Preview, FollowsThePagesThatAreTyped) {
  SeenPages pages;
  pages.AwaitPages(kAll);
  [pages.screen().dialog().window() makeFirstResponder:[pages.screen().view() pages]];
  TypeText("2-");
  TypeText("3");
  pages.AwaitPages("of 2 pages, 2 sheets");
  EXPECT_EQ(*pages.screen().session().Value("page-ranges"), "");
}

OBJC_TEST(Preview, CountsTheSheetsOfTwoSidedJobs) {
  SeenPages pages({.settings = {{"sides", "two-sided-long-edge"}}, .preview = true});
  pages.AwaitPages("of 3 pages, 2 sheets");
}

OBJC_TEST(Preview, ShowsWhatThePrinterPrints) {
  TestServer().AddQueue(
      {.name = "Numbering", .ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd"});
  SeenPages pages({.queue = "Numbering", .preview = true});
  // Printers' own fonts and ours draw these digits alike.
  pages.SwitchOnInRed();
  [pages.screen().dialog().window() makeFirstResponder:pages.outlet(@"textBoxStartNumber")];
  const double one = pages.Red();
  TypeText("25");
  pages.AwaitRed([one](double red) { return red > 1.5 * one; });
  const std::optional<Picture> seen = pages.Page();
  ASSERT_TRUE(seen);
  PressKeys({"Return"});
  pages.screen().AwaitEnd();
  const int job = pages.screen().dialog().job_number();
  ASSERT_NE(job, 0);
  HandleEventsUntil([job] { return TestServer().JobAttributes(job)["job-state"] == "completed"; });
  const std::vector<PrintedPage> printed = PagesOf(TestServer().OutputOf(job), 72);
  ASSERT_EQ(printed.size(), 3u);
  EXPECT_EQ(NumbersOf(printed), "25 26 27");
  ExpectSamePlace(*seen, printed.front().picture());
}

OBJC_TEST(Preview, TurnsPages) {
  SeenPages pages;
  pages.AwaitPages(kAll);
  EXPECT_FALSE([[pages.preview() previous] isEnabled]);
  HoldMouse([pages.preview() next], [[pages.preview() next] bounds], 0.1);
  AwaitPage(pages, 2);
  [pages.screen().dialog().window() makeFirstResponder:[pages.preview() canvas]];
  PressKeys({"Right"});
  AwaitPage(pages, 3);
  HandleEventsUntil([&pages] { return ![[pages.preview() next] isEnabled]; });
  PressKeys({"Home"});
  AwaitPage(pages, 1);
  PressKeys({"Next"});
  AwaitPage(pages, 2);
  PressKeys({"Up"});
  AwaitPage(pages, 1);
  PressKeys({"End"});
  AwaitPage(pages, 3);
}

OBJC_TEST(Preview, GoesToThePageThatIsTyped) {
  SeenPages pages;
  pages.AwaitPages(kAll);
  [pages.screen().dialog().window() makeFirstResponder:[pages.preview() page]];
  TypeText("9");
  PressKeys({"Tab"});
  AwaitPage(pages, 3);
  HandleEventsUntil([&pages] { return ![[pages.preview() next] isEnabled]; });
  EXPECT_FALSE([[pages.preview() next] isEnabled]);
}

OBJC_TEST(Preview, ShowsThePageAsLargeAsItsPaper) {
  SeenPages pages;
  pages.AwaitPages(kAll);
  pages.screen().Choose([pages.preview() zoom], @"100 %");
  const auto is_cut = [&pages] {
    const std::optional<Picture> page = pages.Page();
    return page && page->width() > [[pages.preview() canvas] bounds].size.width - 20;
  };
  HandleEventsUntil(is_cut);
  EXPECT_TRUE(is_cut());
  KeepPicture(pages.screen().view(), "preview-real-size");
}

OBJC_TEST(Preview, IsPutAwayAndRemembersIt) {
  SeenPages pages;
  pages.AwaitPages(kAll);
  const CGFloat width = [pages.screen().view() frame].size.width;
  HoldMouse([pages.screen().view() fold], [[pages.screen().view() fold] bounds], 0.1);
  HandleEventsUntil([&] { return [pages.screen().view() frame].size.width < width; });
  EXPECT_LT([pages.screen().view() frame].size.width, width);
  EXPECT_THAT(pages.screen().Texts(), Not(HasSubstr(kAll)));
  EXPECT_FALSE(WantsPreview());
  HoldMouse([pages.screen().view() fold], [[pages.screen().view() fold] bounds], 0.1);
  pages.AwaitPages(kAll);
  EXPECT_TRUE(WantsPreview());
}

OBJC_TEST(Preview, SaysWhyThereIsNothingToSee) {
  const std::string locked =
      ChangedByQpdf(RawPdf({{""}}), {"--encrypt", "user", "owner", "128", "--use-aes=y", "--"});
  SeenPages pages({.preview = true}, locked);
  pages.screen().AwaitText("the document needs a password");
  KeepPicture(pages.screen().view(), "preview-locked");
}

OBJC_TEST(Preview, SaysThatAPrinterWithoutDescriptionHasNone) {
  SeenPages pages({.queue = "Raw", .preview = true});
  pages.screen().AwaitText("The printer has no PPD file");
}

OBJC_TEST(Preview, ShowsDocumentsForAPrinterDescriptionFromAFile) {
  SeenPages pages({.ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd", .preview = true});
  pages.AwaitPages(kAll);
  EXPECT_TRUE([[[pages.screen().view() print] title] isEqualToString:@"Done"]);
  PressKeys({"Return"});
  pages.screen().AwaitEnd();
  EXPECT_EQ(pages.screen().dialog().job_number(), 0);
  EXPECT_FALSE(pages.screen().dialog().has_sent());
}

OBJC_TEST(Preview, IsNotThereWithoutDocuments) {
  DialogOnScreen screen({.has_file = false, .preview = true});
  screen.AwaitReady();
  EXPECT_TRUE([[screen.view() fold] isHidden]);
  EXPECT_FALSE([screen.view() showsPreview]);
}
