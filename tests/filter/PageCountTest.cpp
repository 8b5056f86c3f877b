#include "filter/PageCount.h"

#include <gtest/gtest.h>

#include "tests/support/TestPPD.h"

namespace {

constexpr char kOurs[] =
    "*cupsFilter2: \"application/vnd.cups-postscript application/vnd.cups-postscript 0 -\"\n"
    "*cupsFilter2: \"application/vnd.cups-pdf application/vnd.cups-postscript -1 pdftops\"\n";

bool Counts(const std::string &lines, const std::string &type = "application/vnd.cups-postscript") {
  const TestPPD ppd(lines);
  const std::string path = ppd.path();
  Job job;
  job.ppd = path.c_str();
  job.final_type = type;
  return NobodyElseCountsPages(job);
}

}  // namespace

TEST(PageCount, IsOursWhereOurLinesAreTheOnlyOnes) {
  EXPECT_TRUE(Counts(kOurs));
  EXPECT_FALSE(Counts(""));
  EXPECT_FALSE(Counts("*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"));
  EXPECT_FALSE(Counts(kOurs, "application/pdf"));
  EXPECT_FALSE(NobodyElseCountsPages({}));
}

TEST(PageCount, CopiesAreThoseThatAreLeftToThePrinter) {
  EXPECT_EQ(CopiesByPrinter("%%PDFTOPDFNumCopies : 3\n%%PDFTOPDFCollate : false\n", 7), 3);
  EXPECT_EQ(CopiesByPrinter("% other\n", 7), 7);
  EXPECT_EQ(CopiesByPrinter("%%PDFTOPDFNumCopies : x\n", 7), 7);
}
