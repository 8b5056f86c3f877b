// The pages of jobs that are sent in other ways than by choosing settings one by one.

#include <gtest/gtest.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Arguments.h"
#include "tests/support/Documents.h"
#include "tests/support/TicketText.h"

namespace {

const Settings kChoices =
    On({{"VQBNSize", "Large"}, {"VQBNDensity", "Dark"}, {"VQBNColor", "Blue"}, {"copies", "2"}});

void ExpectSameTexts(const std::vector<PrintedPage> &expected,
                     const std::vector<PrintedPage> &actual) {
  ASSERT_EQ(expected.size(), actual.size());
  for (size_t at = 0; at < expected.size(); ++at) {
    EXPECT_TRUE(expected[at].texts == actual[at].texts) << "page " << at + 1 << " differs";
  }
}

// With the renderer for which pdeprint asks in jobs with numbers: another one makes other
// PostScript of the same pages.
PrintedJob SentByLp(const Settings &settings, const std::string &document) {
  const TemporaryFolder folder;
  Arguments command = {"lp", "-d", "Color", "-o", "pdftops-renderer=pdftocairo"};
  for (const auto &[name, value] : settings)
    command = command + Arguments{"-o", name + '=' + value};
  return PrintedJob(command + Arguments{folder.Write("document", document)});
}

}  // namespace

TEST(CommandLine, LpWithTheSameOptionsPrintsTheSamePages) {
  for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
    const PrintedJob expected(kChoices, document);
    const PrintedJob job = SentByLp(kChoices, document);
    EXPECT_EQ(job.Numbers(), "25 26 27");
    ExpectSameTexts(expected.Pages(), job.Pages());
    ExpectSamePages(expected.Pages(), job.Pages());
  }
}

TEST(CommandLine, LpWithNothingButOnPrintsTheDefaults) {
  const PrintedJob expected({{"VQBackgroundNumbering", "On"}}, TextPdf(3));
  const PrintedJob job = SentByLp({{"VQBackgroundNumbering", "On"}}, TextPdf(3));
  ExpectSameTexts(expected.Pages(), job.Pages());
  ExpectSamePages(expected.Pages(), job.Pages());
}

TEST(CommandLine, ATicketPrintsThePagesOfItsSettings) {
  const TemporaryFolder folder;
  const std::string ticket = folder.Write("ticket.plist", TicketText(kChoices));
  const PrintedJob job({kPdeprint, "print", "-d", "Color", "--ticket", ticket,
                        folder.Write("document.pdf", TextPdf(3))});
  ExpectSamePages(PrintedJob(kChoices, TextPdf(3)).Pages(), job.Pages());
}

TEST(CommandLine, ATicketMadeBySettingsPrintsWhatWasChosen) {
  const TemporaryFolder folder;
  const std::string ticket = folder.path() / "ticket.plist";
  RunOptions options;
  options.environment = Server().Environment();
  const RunResult made =
      RunPdeprint({"settings", "-d", "Color", "--ticket", ticket, "--set", "Valid=On", "--set",
                   "StartNumber=25", "--set", "Color=Blue", "--set", "Size=Large", "--set",
                   "Density=Dark", "--set", "copies=2"},
                  options);
  ASSERT_EQ(made.status, 0) << made.err;
  const PrintedJob job({kPdeprint, "print", "-d", "Color", "--ticket", ticket,
                        folder.Write("document.pdf", TextPdf(3))});
  ExpectSamePages(PrintedJob(kChoices, TextPdf(3)).Pages(), job.Pages());
}

TEST(CommandLine, TheQueuesOwnDefaultsArePrintedByAJobWithoutOptions) {
  Server().AddQueue({.name = "Numbered",
                     .ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd",
                     .options = {{"VQBackgroundNumbering", "On"}, {"VQStartNumber", "500"}}});
  EXPECT_EQ(PrintedJob({}, TextDocument(2), "Numbered").Numbers(), "500 501");
  const TemporaryFolder folder;
  const PrintedJob lp({"lp", "-d", "Numbered", folder.Write("document", TextDocument(2))});
  EXPECT_EQ(lp.Numbers(), "500 501");
}
