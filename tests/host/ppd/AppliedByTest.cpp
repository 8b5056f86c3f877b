#include "host/ppd/AppliedBy.h"

#include <gtest/gtest.h>

#include "host/ppd/PPDSource.h"
#include "tests/support/MarkOptions.h"

namespace {

AppliedBy WhoAppliesWith(const std::string &lines) {
  PrinterOptions options = MarkOptions();
  options.document_filter = "marks";
  return WhoApplies(*ParsePPD(PrinterText(lines)), options);
}

}  // namespace

TEST(AppliedBy, IsThePrinterWhoseFileSaysSo) {
  EXPECT_EQ(WhoAppliesWith("*MarkSupport: \"yes\"\n"), AppliedBy::kPrinter);
  EXPECT_EQ(WhoAppliesWith("*MarkSupport: \"no\"\n"), AppliedBy::kNobody);
  EXPECT_EQ(WhoAppliesWith(""), AppliedBy::kNobody);
}

TEST(AppliedBy, IsTheServerThatRunsTheFilter) {
  for (const char *line : {"*cupsFilter: \"application/vnd.cups-pdf 0 marks\"\n",
                           "*cupsFilter2: \"application/vnd.cups-pdf application/pdf -1 marks\"\n",
                           "*cupsPreFilter: \"application/vnd.cups-pdf 0 /usr/lib/x/marks\"\n"}) {
    EXPECT_EQ(WhoAppliesWith(line), AppliedBy::kServer) << line;
    EXPECT_EQ(WhoAppliesWith(std::string("*MarkSupport: \"yes\"\n") + line), AppliedBy::kServer);
  }
}

TEST(AppliedBy, IsNotAFilterOfAnotherName) {
  EXPECT_EQ(WhoAppliesWith("*cupsFilter: \"application/vnd.cups-raster 0 rastertomarks\"\n"),
            AppliedBy::kNobody);
  EXPECT_EQ(WhoAppliesWith("*cupsFilter: \"application/marks 0 other\"\n"), AppliedBy::kNobody);
}
