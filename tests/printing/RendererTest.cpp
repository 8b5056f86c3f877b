// The programs that make PostScript of PDF documents.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"
#include "tests/support/RunProgram.h"

namespace {

const char *const kQueues[] = {"Color", "Pdftops", "Pdftocairo", "Hybrid"};

// Half-transparent red on the first page, none on the second. Small paper: what is transparent
// becomes an image at the printer's resolution.
const std::string &TransparentPdf() {
  static const std::string pdf =
      PdfOf("<</PageSize[200 280]>>setpagedevice\n" +
            Document({TextPage("Page 1", 200, 280) +
                          "\n.5 .setfillconstantalpha 1 0 0 setrgbcolor 10 10 30 30 rectfill",
                      TextPage("Page 2", 200, 280)}));
  return pdf;
}

// Two pages of text.
std::string CairoPdf() {
  const TemporaryFolder folder;
  const std::string made = folder.path() / "cairo.pdf";
  const RunResult result =
      RunProgram({"pdftocairo", "-pdf", folder.Write("text.pdf", TextPdf(2)), made});
  EXPECT_EQ(0, result.status) << result.err;
  return ContentOf(made);
}

PrintedJob TransparentJob(const std::string &queue, const std::string &placement) {
  return PrintedJob(On({{"PageSize", "Custom.200x280"}, {"VQBNPlacement", placement}}),
                    TransparentPdf(), queue);
}

}  // namespace

TEST(Renderer, EachNumbersThePages) {
  for (const char *queue : kQueues) {
    EXPECT_EQ(PrintedJob(On(), TextPdf(3), queue).Numbers(), "25 26 27") << queue;
  }
}

TEST(Renderer, EachHasTheSameNumberUnderThePage) {
  const PrintedJob expected(On(), Document({"newpath"}));
  for (const char *queue : kQueues) {
    SCOPED_TRACE(queue);
    const PrintedJob job(On(), TextPdf(3), queue);
    const PrintedJob plain({}, TextPdf(3), queue);
    const PrintedPage &page = job.Pages().front();
    EXPECT_EQ(NumberColor(page), NumberColor(expected.Pages().front()));
    EXPECT_EQ(page.Number().size, expected.Pages().front().Number().size);
    ExpectInTheMiddle(page);
    ExpectContentUnchanged(page, plain.Pages().front());
  }
}

TEST(Renderer, ATransparentPageHidesTheNumberBehindItButPdftocairoKeepsIt) {
  for (const char *queue : {"Pdftops", "Hybrid"}) {
    const PrintedPage &page = TransparentJob(queue, "Behind").Pages().front();
    EXPECT_EQ(page.Number().text, "25") << queue;
    const Box middle = {0.2, 0.35, 0.8, 0.65};
    EXPECT_EQ(page.picture().ShareOf(
                  [](Color color) { return color != kWhitePaper && color != kBlackInk; }, middle),
              0)
        << queue;
  }
  // The first names no renderer: a job with numbers asks for it.
  for (const char *queue : {"Color", "Pdftocairo"}) {
    SCOPED_TRACE(queue);
    const PrintedJob job = TransparentJob(queue, "Behind");
    const std::vector<PrintedPage> &kept = job.Pages();
    EXPECT_EQ(kept[0].Number().text, "25");
    EXPECT_EQ(NumberColor(kept[0]), NumberColor(kept[1]));
    EXPECT_NEAR(NumberBox(kept[0]).height(), NumberBox(kept[1]).height(), 0.02);
    ExpectInTheMiddle(kept[0]);
  }
}

// Cairo, with which many programs make their documents, takes every page for transparent.
TEST(Renderer, PagesMadeByCairoKeepTheNumberBehindThem) {
  const std::string document = CairoPdf();
  const auto is_number = [](Color color) { return color != kWhitePaper && color != kBlackInk; };
  const Box middle = {0.2, 0.35, 0.8, 0.65};
  const PrintedJob job(On(), document);
  EXPECT_EQ(job.Numbers(), "25 26");
  for (const PrintedPage &page : job.Pages()) {
    EXPECT_GE(page.picture().ShareOf(is_number, middle), 0.02);
    ExpectInTheMiddle(page);
  }
  // As another program sends them: with the renderer that the print system takes by itself.
  const TemporaryFolder folder;
  const PrintedJob hidden({"lp", "-d", "Color", "-o", "VQBackgroundNumbering=On",
                           folder.Write("document.pdf", document)});
  for (const PrintedPage &page : hidden.Pages()) {
    EXPECT_EQ(page.picture().ShareOf(is_number, middle), 0);
  }
}

TEST(Renderer, ThePageAfterATransparentOneIsNumberedAsAnyOther) {
  for (const char *queue : kQueues) {
    SCOPED_TRACE(queue);
    const PrintedJob job = TransparentJob(queue, "Behind");
    EXPECT_EQ(job.Numbers(), "25 26");
    ExpectInTheMiddle(job.Pages().back());
  }
}

TEST(Renderer, ANumberOverATransparentPageIsSeenWithEach) {
  for (const char *queue : kQueues) {
    SCOPED_TRACE(queue);
    const PrintedJob job = TransparentJob(queue, "Over");
    EXPECT_EQ(job.Numbers(), "25 26");
    const Color number = NumberColor(job.Pages().back());
    const Box middle = {0.2, 0.35, 0.8, 0.65};
    EXPECT_GE(job.Pages().front().picture().ShareOf(
                  [number](Color color) { return color == number; }, middle),
              0.03);
  }
}
