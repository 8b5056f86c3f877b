// Jobs whose pages are not numbered.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

const Settings kOff = {{"VQBackgroundNumbering", "Off"}, {"VQBNSize", "Large"},
                       {"VQBNDensity", "Dark"},          {"VQBNColor", "Red"},
                       {"VQStartNumber", "25"},          {"VQBNPlacement", "Over"}};

const char *const kQueues[] = {"Color", "Pdftops", "Pdftocairo", "Hybrid"};

}  // namespace

TEST(NumberingOff, DrawsNothing) {
  for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
    const PrintedJob off(kOff, document);
    EXPECT_EQ(off.Numbers(), "- - -");
    for (const PrintedPage &page : off.Pages()) EXPECT_FALSE(page.picture().MainColor());
  }
}

TEST(NumberingOff, PrintsThePagesThatAJobWithoutTheOptionsPrints) {
  for (const char *queue : kQueues) {
    SCOPED_TRACE(queue);
    ExpectSamePages(PrintedJob({}, TextPdf(3), queue).Pages(),
                    PrintedJob(kOff, TextPdf(3), queue).Pages());
  }
  ExpectSamePages(PrintedJob({}, TextDocument(3)).Pages(),
                  PrintedJob(kOff, TextDocument(3)).Pages());
}

TEST(NumberingOff, PrintsThePagesThatAPrinterWithoutNumberingPrints) {
  for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
    ExpectSamePages(PrintedJob({}, document, "Plain").Pages(), PrintedJob(kOff, document).Pages());
  }
}

TEST(NumberingOff, LeavesThePrintersOwnBeginAndEndOfPagesAlone) {
  const PrintedJob off(kOff, TextDocument(2), "Marked");
  for (const PrintedPage &page : off.Pages()) {
    EXPECT_GT(page.picture().ShareOf([](Color color) { return color == Color{255, 0, 0}; }), 0);
    EXPECT_GT(page.picture().ShareOf([](Color color) { return color == Color{0, 255, 0}; }), 0);
  }
}

TEST(NumberingOff, IsWhatAPrinterDoesUnlessTold) {
  EXPECT_EQ(PrintedJob({}, TextDocument(3)).Numbers(), "- - -");
}
