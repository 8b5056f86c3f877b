// Which number each side has, as the print system lays out the pages for the filter.

#include <gtest/gtest.h>

#include "tests/filter/FilterRun.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/RawPdf.h"

namespace {

constexpr char kRaster[] = "*cupsFilter: \"application/vnd.cups-raster 0 rastertohp\"\n";
constexpr char kPdf[] = "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n";
constexpr char kCollated[] =
    " copies=2 multiple-document-handling=separate-documents-collated-copies";
constexpr char kUncollated[] =
    " copies=2 multiple-document-handling=separate-documents-uncollated-copies";

std::string Fruits(const std::string &middle = "/MediaBox [0 0 595 842]") {
  std::vector<RawPage> pages;
  for (const char *word : {"Apple", "Berry", "Cherry"}) {
    pages.push_back({std::string("BT /F 12 Tf 50 500 Td (") + word + ") Tj ET"});
  }
  pages[1].entries = middle;
  return RawPdf(pages);
}

// What is on the sides, in their order, where a printer has these lines in its PPD file.
std::string Sides(const std::string &printer, const std::string &options = "",
                  const std::string &document = Fruits()) {
  const TemporaryFolder folder;
  const bool takes_pdf = printer.starts_with(kPdf);
  const std::string copies = options.find("copies=2") == std::string::npos ? "1" : "2";
  const std::string all = kOn + options;
  RunOptions environment;
  environment.environment = {
      {"PPD", folder.Write("a.ppd", NumberingPPDText(/*color=*/true, printer)).string()},
      {"CONTENT_TYPE", "application/pdf"},
      {"FINAL_CONTENT_TYPE", takes_pdf ? "application/pdf" : "application/vnd.cups-raster"}};
  const RunResult result = RunProgram(
      {"bash", "-c",
       "set -o pipefail; /usr/lib/cups/filter/pdftopdf 1 user title \"$3\" \"$2\" \"$4\" | "
       "\"$1\" 1 user title \"$3\" \"$2\"",
       "-", kFilter, all, copies, folder.Write("document.pdf", document)},
      environment);
  EXPECT_EQ(0, result.status) << result.err;
  std::string text = TextOfPdf(result.out);
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

}  // namespace

TEST(FilterCounting, CountsTheSidesFromTheStartNumber) {
  for (const char *printer : {kRaster, kPdf}) {
    EXPECT_EQ("Apple 25 Berry 26 Cherry 27", Sides(printer));
  }
}

TEST(FilterCounting, PagesThatAreNotPrintedDoNotCount) {
  for (const char *printer : {kRaster, kPdf}) {
    EXPECT_EQ("Berry 25 Cherry 26", Sides(printer, " page-ranges=2-3"));
    EXPECT_EQ("Apple 25 Cherry 26", Sides(printer, " page-set=odd"));
  }
}

TEST(FilterCounting, ASideWithSeveralPagesHasOneNumber) {
  for (const char *printer : {kRaster, kPdf}) {
    EXPECT_EQ("Apple Berry 25 Cherry 26", Sides(printer, " number-up=2"));
  }
}

TEST(FilterCounting, FollowsTheOrderOfPrinting) {
  for (const char *printer : {kRaster, kPdf}) {
    EXPECT_EQ("Cherry 25 Berry 26 Apple 27", Sides(printer, " outputorder=reverse"));
  }
}

TEST(FilterCounting, MixedSizesAndLandscapePagesCountOn) {
  for (const char *printer : {kRaster, kPdf}) {
    EXPECT_EQ("Apple 25 Berry 26 Cherry 27",
              Sides(printer, "", Fruits("/MediaBox [0 0 842 1191]")));
    EXPECT_EQ("Apple 25 Berry 26 Cherry 27", Sides(printer, "", Fruits("/MediaBox [0 0 842 595]")));
  }
}

TEST(FilterCounting, CollatedCopiesGoOnWhereThePrintSystemMakesThem) {
  const std::string on = "Apple 25 Berry 26 Cherry 27 Apple 28 Berry 29 Cherry 30";
  EXPECT_EQ(on, Sides(kRaster, kCollated));
  EXPECT_EQ(on,
            Sides(std::string(kPdf) + "*cupsManualCopies: True\n*cupsMaxCopies: 1\n", kCollated));
}

TEST(FilterCounting, AnEmptyBackBetweenCopiesIsASide) {
  EXPECT_EQ("Apple 25 Berry 26 Cherry 27 28 Apple 29 Berry 30 Cherry 31 32",
            Sides(kRaster, std::string(kCollated) + " Duplex=DuplexNoTumble"));
}

TEST(FilterCounting, CopiesThatThePrinterMakesRepeatTheNumbers) {
  const std::string once = "Apple 25 Berry 26 Cherry 27";
  EXPECT_EQ(once, Sides(kRaster, kUncollated));
  EXPECT_EQ(once, Sides(kPdf, kCollated));
  EXPECT_EQ(once, Sides(kPdf, kUncollated));
}

TEST(FilterCounting, UncollatedCopiesThatThePrintSystemMakesGoOn) {
  EXPECT_EQ("Apple 25 Apple 26 Berry 27 Berry 28 Cherry 29 Cherry 30",
            Sides(std::string(kPdf) + "*cupsManualCopies: True\n*cupsMaxCopies: 1\n", kUncollated));
}
