#include "host/session/panels/JobPanels.h"

#include <set>

#include "tests/host/session/panels/RowsOfJob.h"

namespace {

const JobPanel &Panel(const std::vector<JobPanel> &panels, const std::string &title) {
  return *std::ranges::find(panels, title, &JobPanel::title);
}

}  // namespace

OBJC_TEST(JobPanels, AreOfferedInThisOrder) {
  Names titles;
  std::set<std::string> kinds;
  for (const JobPanel &panel : JobPanels()) {
    titles.push_back(panel.title);
    kinds.insert(panel.kind);
  }
  EXPECT_EQ((Names{"Layout", "Paper", "Pages", "Job", "Printer Options"}), titles);
  EXPECT_EQ(titles.size(), kinds.size());
}

OBJC_TEST(JobPanels, LeaveOutWhatAnExtensionsPanelShows) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}, kOffered));
  ASSERT_TRUE(session.IsClaimed("Duplex"));
  const std::vector<JobPanel> panels = JobPanels();
  for (const PanelRow &row : Panel(panels, "Layout").RowsFor(session)) {
    EXPECT_NE("Two-Sided", row.caption);
  }
  EXPECT_TRUE(Panel(panels, "Printer Options").RowsFor(session).empty());
}

OBJC_TEST(JobPanels, PrinterOptionsAreThoseThatNoOtherPanelShowsInTheirGroups) {
  const std::string group = "*OpenGroup: Quality/Print Quality\n" +
                            Option("Resolution", {"300dpi", "600dpi"}) + "*CloseGroup: Quality\n";
  const RowsOfJob panel(PrinterOptionRows, PlainPPD(Option("Duplex", {"None", "DuplexTumble"}) +
                                                    Option("Collate", {"True", "False"}) +
                                                    Option("OutputOrder", {"Normal", "Reverse"}) +
                                                    Option("Stapling", {"No", "Yes"}) + group));
  EXPECT_EQ((Names{"Stapling", "Resolution"}), panel.names());
  EXPECT_EQ("Print Quality", panel["Resolution"].group);
}

// What can be chosen can also be printed: presets and tickets keep it, too.
OBJC_TEST(JobPanels, EveryChoiceFitsTheJobAndIsShownAsItWasChosen) {
  RowsOfJob printer(PrinterOptionRows, ColorPPD());
  for (const JobPanel &panel : JobPanels()) {
    for (const PanelRow &row : panel.RowsFor(printer.session)) {
      for (const PPDChoice &choice : row.choices) {
        EXPECT_TRUE(row.Choose(printer.session, choice.keyword));
        EXPECT_EQ("", ReasonOf(printer.session)) << row.name << ' ' << choice.keyword;
        EXPECT_EQ(choice.keyword, row.ValueIn(printer.Job())) << row.name;
        EXPECT_NE("", choice.text) << row.name;
      }
    }
  }
}

OBJC_TEST(JobPanels, ARowIsFoundByItsCaptionItsGroupAndItsChoices) {
  const PanelRow row = {.name = "a",
                        .caption = "Print Quality",
                        .choices = {{"x", "Fine"}, {"y", "Süß"}},
                        .group = "General"};
  for (const char *text : {"", "quality", "PRINT", "fine", "neral", "süß"}) {
    EXPECT_TRUE(row.Has(text)) << text;
  }
  EXPECT_FALSE(row.Has("x"));
  EXPECT_FALSE(row.Has("quantity"));
}
