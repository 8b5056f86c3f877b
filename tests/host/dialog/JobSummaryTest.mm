#include "host/dialog/JobSummary.h"

#include "tests/host/session/SessionOfJob.h"

namespace {

const SummarizedJob kJob = {
    .printer = "Office", .document = "a.pdf", .copies = "2", .pages = "1-3"};

}  // namespace

OBJC_TEST(JobSummary, SaysWhereWhatAndHowMuchIsPrinted) {
  Bundles bundles("", {});  // whose panels need no display
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(std::nullopt, {}));
  EXPECT_EQ((SummarySection{
                "Job",
                {{"Printer", "Office"}, {"Document", "a.pdf"}, {"Copies", "2"}, {"Pages", "1-3"}}}),
            SummaryOfJob(kJob, session));
}

OBJC_TEST(JobSummary, HasNoDocumentWhereNothingIsPrintedAndSaysThatAllPagesAre) {
  Bundles bundles("", {});  // whose panels need no display
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(std::nullopt, {}));
  EXPECT_EQ(
      (SummarySection{"Job", {{"Printer", "Office"}, {"Copies", "1"}, {"Pages", "all"}}}),
      SummaryOfJob({.printer = "Office", .document = "", .copies = "1", .pages = ""}, session));
}

OBJC_TEST(JobSummary, ListsThePrintersOptionsThatAreNotAsThePrinterHasThem) {
  Bundles bundles("", {});  // whose panels need no display
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {{"PageSize", "A3"}}));
  const size_t without_options = 4;
  SummaryLines lines = SummaryOfJob(kJob, session)->second;
  EXPECT_EQ((SummaryLines{{"Media Size", "A3"}}),
            SummaryLines(lines.begin() + without_options, lines.end()))
      << "the queue's default";
  EXPECT_TRUE(session.Set("MediaType", "Transparency"));
  EXPECT_TRUE(session.Set("PageSize", "A4"));
  lines = SummaryOfJob(kJob, session)->second;
  EXPECT_EQ((SummaryLines{{"Media Size", "A4"}, {"Paper Type", "Transparency"}}),
            SummaryLines(lines.begin() + without_options, lines.end()))
      << "also those that are set to what the printer's description has";
}

OBJC_TEST(JobSummary, ListsACustomSizeAsItIsTyped) {
  Bundles bundles("", {});  // whose panels need no display
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(PlainPPD("*HWMargins: 0 0 0 0\n*VariablePaperSize: True\n"
                                          "*MaxMediaWidth: 1000\n*MaxMediaHeight: 1000\n"
                                          "*NonUIOrderDependency: 10 AnySetup *CustomPageSize\n"
                                          "*CustomPageSize True: \"\"\n"
                                          "*ParamCustomPageSize Width: 1 points 36 1000\n"
                                          "*ParamCustomPageSize Height: 2 points 36 1000\n"),
                                 {}));
  EXPECT_TRUE(session.Set("PageSize", "Custom.100x200"));
  const SummaryLines lines = SummaryOfJob(kJob, session)->second;
  EXPECT_EQ((SummaryLines{{"Media Size", "Custom"}, {"Custom Size", "100 x 200 pt"}}),
            SummaryLines(lines.end() - 2, lines.end()));
}

OBJC_TEST(JobSummary, SaysInWordsWhatEveryQueueDoesAndLeavesOutWhatIsGray) {
  Bundles bundles("", {});  // whose panels need no display
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {{"number-up", "1"}, {"job-sheets", "none,none"}},
                                 {{"job-sheets", {"none", "standard"}}}));
  for (const auto &[option, value] : JobOptions{{"number-up-layout", "rltb"},
                                                {"orientation-requested", "4"},
                                                {"page-set", "odd"},
                                                {"job-sheets", "standard,none"}}) {
    EXPECT_TRUE(session.Set(option, value));
  }
  const SummaryLines lines = SummaryOfJob(kJob, session)->second;
  EXPECT_EQ((SummaryLines{{"Orientation", "Landscape"},
                          {"Pages to Print", "Odd Pages Only"},
                          {"Banner Before", "Standard"},
                          {"Banner After", "No Banner"}}),
            SummaryLines(lines.begin() + 4, lines.end()))
      << "the order of pages on a sheet is that of one page";
}
