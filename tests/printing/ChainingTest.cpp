// Numbering beside what the printer, other options and earlier jobs set up for the pages.

#include <gmock/gmock.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

using testing::HasSubstr;

namespace {

const Color kRed = {255, 0, 0}, kGreen = {0, 255, 0};

bool IsRed(Color color) { return color == kRed; }
bool IsGreen(Color color) { return color == kGreen; }

// A document that writes how long the page device's procedures are.
const char kLengths[] =
    "%!PS\n/Helvetica findfont 12 scalefont setfont 72 72 moveto [ /BeginPage /EndPage ] {\n"
    "currentpagedevice exch get length 12 string cvs show ( elements ) show } forall showpage\n";

// Without the marks for the end of a job: printers that do not take them as such go on with what
// the job before left.
std::string InARow(const std::vector<PrintedJob> &jobs) {
  std::string all;
  for (const PrintedJob &job : jobs) {
    for (const std::string &part : JobsIn(job.Output())) all += part + "\n";
  }
  return all;
}

PrintedJob OffJob() { return PrintedJob({}, TextDocument(2)); }

}  // namespace

TEST(Chaining, WhatThePrinterDrawsAtBeginAndEndOfPagesIsStillDrawnOnTopOfTheNumber) {
  for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
    const PrintedJob job(On(), document, "Marked");
    const PrintedJob off({}, document, "Marked");
    EXPECT_EQ(job.Numbers(), "25 26 27");
    ASSERT_EQ(job.Pages().size(), off.Pages().size());
    for (size_t at = 0; at < job.Pages().size(); ++at) {
      const Picture &plain = off.Pages()[at].picture();
      EXPECT_GT(plain.ShareOf(IsRed), 0);
      EXPECT_GT(plain.ShareOf(IsGreen), 0);
      ExpectContentUnchanged(job.Pages()[at], off.Pages()[at]);
    }
  }
}

TEST(Chaining, WhatThePrinterDrawsIsStillDrawnUnderANumberOverThePage) {
  const PrintedJob job(On({{"VQBNPlacement", "Over"}}), TextDocument(3), "Marked");
  EXPECT_EQ(job.Numbers(), "25 26 27");
  for (const PrintedPage &page : job.Pages()) {
    EXPECT_GT(page.picture().ShareOf(IsRed), 0);
    EXPECT_GT(page.picture().ShareOf(IsGreen), 0);
  }
}

TEST(Chaining, ADeviceThatPutsTwoPagesOnASheetSideGetsANumberForEachSide) {
  const PrintedJob job(On(), TextDocument(4), "TwoUp");
  EXPECT_EQ(job.Numbers(), "25 26");
  for (const PrintedPage &page : job.Pages()) {
    EXPECT_EQ(page.NumberDrawings(), 1);
    ExpectInTheMiddle(page);
  }
  EXPECT_TRUE(job.Pages()[0].Says("Page 1"));
  EXPECT_TRUE(job.Pages()[0].Says("Page 2"));
}

TEST(Chaining, TheNumberOfASheetSideDoesNotCoverItsFirstPage) {
  const PrintedJob job(On({{"VQBNDensity", "Dark"}}), TextDocument(4), "TwoUp");
  const PrintedJob plain({}, TextDocument(4), "TwoUp");
  ASSERT_EQ(job.Pages().size(), plain.Pages().size());
  for (size_t at = 0; at < job.Pages().size(); ++at) {
    ExpectContentUnchanged(job.Pages()[at], plain.Pages()[at]);
  }
}

TEST(Chaining, OverTwoPagesOnASheetSideTheNumberIsDrawnOnce) {
  const PrintedJob job(On({{"VQBNPlacement", "Over"}}), TextDocument(4), "TwoUp");
  EXPECT_EQ(job.Numbers(), "25 26");
  for (const PrintedPage &page : job.Pages()) EXPECT_EQ(page.NumberDrawings(), 1);
}

TEST(JobsInARow, AJobWithoutNumberingAfterANumberedOneHasNone) {
  for (const char *placement : {"Behind", "Over"}) {
    const PrintedJob on(On({{"VQBNPlacement", placement}}), TextDocument(2));
    const std::vector<PrintedPage> pages = PagesOf(InARow({on, OffJob()}));
    ASSERT_EQ(pages.size(), 4u);
    ExpectSamePages(on.Pages(), {pages[0], pages[1]});
    ExpectSamePages(OffJob().Pages(), {pages[2], pages[3]});
    EXPECT_EQ(pages[3].NumberDrawings(), 0);
  }
}

TEST(JobsInARow, EachNumberedJobHasItsOwnNumbersAndLook) {
  for (const std::string &document : {TextDocument(2), TextPdf(2)}) {
    const PrintedJob first(On({{"VQBNSize", "Small"}, {"VQBNColor", "Red"}}), document);
    const PrintedJob off({}, document);
    const PrintedJob last(On({{"VQBNSize", "Large"}, {"VQStartNumber", "7"}}), document);
    const std::vector<PrintedPage> pages = PagesOf(InARow({first, off, last}));
    ASSERT_EQ(pages.size(), 6u);
    ExpectSamePages(first.Pages(), {pages[0], pages[1]});
    ExpectSamePages(off.Pages(), {pages[2], pages[3]});
    ExpectSamePages(last.Pages(), {pages[4], pages[5]});
  }
}

TEST(JobsInARow, ANumberedJobRightAfterAnotherDrawsNoNumberTwice) {
  const PrintedJob first(On(), TextDocument(2));
  const PrintedJob last(On({{"VQStartNumber", "7"}}), TextDocument(2));
  for (const PrintedJob &job : {first, last}) {
    for (const PrintedPage &page : job.Pages()) ASSERT_EQ(page.NumberDrawings(), 1);
  }
  const std::vector<PrintedPage> pages = PagesOf(InARow({first, last, first}));
  ASSERT_EQ(pages.size(), 6u);
  // What was drawn while the job was set up, and erased, is still in the list of its first page.
  for (const size_t at : {1, 3, 5}) EXPECT_EQ(pages[at].NumberDrawings(), 1) << at;
  ExpectSamePages({pages[2], pages[3]}, last.Pages());
  ExpectSamePages({pages[4], pages[5]}, first.Pages());
}

TEST(JobsInARow, OptionsThatAJobDoesNotChooseAreTheDefaultsAgain) {
  const PrintedJob chosen(On({{"VQBNSize", "Large"},
                              {"VQBNColor", "Red"},
                              {"VQBNDensity", "Dark"},
                              {"VQBNPlacement", "Over"}}),
                          TextDocument(1));
  // Programs that send only what is not the default send none of these.
  const PrintedJob defaults({{"VQBackgroundNumbering", "On"}}, TextDocument(1));
  std::string unchosen = defaults.Output();
  for (const char *name :
       {"/VelmoraStart ", "/VelmoraSize ", "/VelmoraInk ", "/VelmoraDensity ", "/VelmoraOver "}) {
    const size_t place = unchosen.find(std::string("userdict ") + name);
    ASSERT_NE(place, std::string::npos) << name;
    unchosen.erase(place, unchosen.find('\n', place) - place);
  }
  const std::vector<PrintedPage> pages =
      PagesOf(InARow({chosen}) + JobsIn(unchosen).front() + "\n");
  ASSERT_EQ(pages.size(), 2u);
  ExpectSamePages(defaults.Pages(), {pages[1]});
}

TEST(JobsInARow, OffForgetsTheValuesOfOptions) {
  std::string off =
      PrintedJob({{"VQBNSize", "Large"}, {"VQBNColor", "Red"}}, TextDocument(1)).Output();
  off = JobsIn(off).front() +
        "\n%!PS\n/Helvetica findfont 12 scalefont setfont 72 72 moveto\n"
        "[ /VelmoraStart /VelmoraSize /VelmoraDensity /VelmoraInk /VelmoraOver ]\n"
        "{ userdict exch known { (left ) }{ (gone ) } ifelse show } forall showpage\n";
  const std::vector<PrintedPage> pages = PagesOf(off);
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_TRUE(pages[1].Says("gone gone gone gone gone")) << pages[1].Words();
}

TEST(JobsInARow, ThePageDevicesProceduresDoNotGrow) {
  const PrintedJob on(On(), TextDocument(1));
  const std::string once = on.Output();
  const auto lengths_after = [&](int times) {
    std::vector<PrintedJob> jobs(times, on);
    const std::vector<PrintedPage> pages = PagesOf(InARow(jobs) + kLengths);
    return pages.back().Words();
  };
  const std::string lengths = lengths_after(1);
  EXPECT_THAT(lengths, HasSubstr("elements"));
  EXPECT_EQ(lengths_after(12), lengths);
}

TEST(JobsInARow, ManyNumberedJobsNeitherSlowDownNorNestTheDrawing) {
  const PrintedJob on(On(), TextDocument(1));
  const std::vector<PrintedPage> pages = PagesOf(InARow(std::vector<PrintedJob>(40, on)));
  ASSERT_EQ(pages.size(), 40u);
  ExpectSamePages(on.Pages(), {pages.back()});
}

TEST(JobsInARow, WhatThePrinterHadBeforeIsThereAgainWhenNumberingIsOff) {
  const PrintedJob on(On(), TextDocument(1), "Marked");
  const PrintedJob off({}, TextDocument(2));
  const PrintedJob marked({}, TextDocument(2), "Marked");
  const std::vector<PrintedPage> pages = PagesOf(InARow({on, off}));
  ASSERT_EQ(pages.size(), 3u);
  ExpectSamePages(marked.Pages(), {pages[1], pages[2]});
}

TEST(JobsInARow, EachFileOfAJobBeginsWithTheStartNumber) {
  const PrintedJob job(On(), std::vector{TextDocument(2), TextPdf(3)});
  EXPECT_EQ(JobsIn(job.Output()).size(), 2u);
  EXPECT_EQ(job.Numbers(), "25 26 25 26 27");
}
