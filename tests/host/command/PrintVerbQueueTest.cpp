// `pdeprint print`: the queue, and what it gives its jobs.

#include <gmock/gmock.h>

#include "tests/host/command/PrintingProgram.h"
#include "tests/support/TestPPD.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// Shows a difference of jobs that were sent otherwise alike.
Attributes WhatTheUserAskedFor(Attributes attributes) {
  std::erase_if(attributes, [](const auto &attribute) {
    for (const char *of_the_job : {"job-id", "job-uri", "job-uuid", "job-more-info", "time-at-",
                                   "date-time-at-", "job-printer-up-time", "printer-uri", "VQ"}) {
      if (attribute.first.starts_with(of_the_job)) return true;
    }
    return false;
  });
  return attributes;
}

}  // namespace

TEST_F(PrintVerb, PrintsOnTheDefaultQueueOfTheServer) {
  EXPECT_EQ(JobSaidIn(Run({"print", file_}), "Office"), NewestJob());
}

TEST_F(PrintVerb, TheUsersDefaultQueueGoesBeforeTheServersAndTheEnvironmentsBeforeAll) {
  WriteLpoptions("Default Bare\n");
  JobSaidIn(Run({"print", file_}), "Bare");
  JobSaidIn(Run({"print", file_}, {{"LPDEST", "Mono"}}), "Mono");
}

TEST_F(PrintVerb, ADefaultQueueThatIsNotThereIsNamed) {
  const std::string message = Refusal(1, {file_}, {{"LPDEST", "Absent"}});
  EXPECT_THAT(message, StartsWith("pdeprint: no default queue on the print server " +
                                  server().address() + ": LPDEST environment variable "));
  EXPECT_THAT(message, HasSubstr("; there is Bare, Mono, Office, "));
}

TEST_F(PrintVerb, AnInstancePrintsOnItsQueueWithItsOptions) {
  WriteLpoptions("Dest Office/draft VQBNDensity=Light number-up=4\n");
  const Attributes job =
      server().JobAttributes(JobSaidIn(PrintOn("Office/draft", {"--set", "Valid=On"}), "Office"));
  EXPECT_THAT(job.at("job-printer-uri"), EndsWith("/printers/Office"));
  EXPECT_EQ(job.at("VQBackgroundNumbering"), "On");
  EXPECT_EQ(job.at("VQBNDensity"), "Light");
  EXPECT_EQ(job.at("number-up"), "4");
}

TEST_F(PrintVerb, PrintsOnAClassWithTheSettingsOfItsPrinters) {
  const TemporaryFolder folder;
  server().AddQueue({.name = "Member",
                     .ppd = folder.Write("color.ppd", NumberingPPDText(/*color=*/true)),
                     .stopped = "Paused"});
  server().Run({"/usr/sbin/lpadmin", "-p", "Member", "-c", "Team"});
  server().Run({"/usr/sbin/lpadmin", "-p", "Team", "-E"});
  const Attributes job = JobOn("Team", {"--set", "Valid=On", "--set", "StartNumber=7"});
  EXPECT_EQ(job.at("VQBackgroundNumbering"), "On");
  EXPECT_EQ(job.at("VQStartNumber"), "7");
}

TEST_F(PrintVerb, TheUsersAndTheServersOptionsAreSentAsLpSendsThem) {
  const TemporaryFolder folder;
  server().AddQueue({.name = "Defaults",
                     .ppd = folder.Write("color.ppd", NumberingPPDText(/*color=*/true)),
                     .options = {{"number-up-default", "2"}, {"copies-default", "3"}},
                     .stopped = "Paused"});
  WriteLpoptions(
      "Dest Defaults copies=4 InputSlot=Tray1 page-border=single sides=two-sided-long-edge\n");
  server().Run({"lp", "-d", "Defaults", "-o", "VQBNSize=Large", file_});
  const Attributes of_lp = WhatTheUserAskedFor(server().JobAttributes(NewestJob()));
  EXPECT_EQ(of_lp.at("copies"), "4");
  EXPECT_EQ(of_lp.at("InputSlot"), "Tray1");
  EXPECT_EQ(WhatTheUserAskedFor(JobOn("Defaults", {"--set", "Size=Large"})), of_lp);
}

TEST_F(PrintVerb, TheTicketGoesBeforeTheUsersAndTheServersOptions) {
  const TemporaryFolder folder;
  server().AddQueue({.name = "Given",
                     .ppd = folder.Write("color.ppd", NumberingPPDText(/*color=*/true)),
                     .options = {{"number-up-default", "2"},
                                 {"copies-default", "3"},
                                 {"VQBNSize", "Large"},
                                 {"VQBackgroundNumbering", "On"}},
                     .stopped = "Paused"});
  WriteLpoptions(
      "Dest Given VQBNDensity=Dark VQStartNumber=7 InputSlot=Tray1 page-border=single\n");
  const Attributes given = JobOn("Given");
  EXPECT_EQ(given.at("VQBNSize"), "Large");
  EXPECT_EQ(given.at("VQBackgroundNumbering"), "On");
  EXPECT_EQ(given.at("VQBNDensity"), "Dark");
  EXPECT_EQ(given.at("VQStartNumber"), "7");
  const Attributes job = JobOn("Given", {"--ticket", Ticket({{"VQBNSize", "Small"},
                                                             {"VQBackgroundNumbering", "Off"},
                                                             {"VQBNDensity", "Light"},
                                                             {"VQStartNumber", "8"},
                                                             {"InputSlot", "Manual"},
                                                             {"page-border", "none"},
                                                             {"number-up", "1"},
                                                             {"copies", "1"}})});
  EXPECT_EQ(job.at("VQBNSize"), "Small");
  EXPECT_EQ(job.at("VQBackgroundNumbering"), "Off");
  EXPECT_EQ(job.at("VQBNDensity"), "Light");
  EXPECT_EQ(job.at("VQStartNumber"), "8");
  EXPECT_EQ(job.at("InputSlot"), "Manual");
  EXPECT_EQ(job.at("page-border"), "none");
  EXPECT_EQ(job.at("number-up"), "1");
  EXPECT_EQ(job.at("copies"), "1");
}

TEST_F(PrintVerb, AUsersOptionThatThePanelDoesNotAllowIsNotSentAndToldOf) {
  WriteLpoptions("Dest Office VQStartNumber=1000 VQBNColor=Purple\n");
  const RunResult result = PrintOn("Office", {"--set", "Valid=On"});
  EXPECT_EQ(
      result.err,
      "pdeprint: note: VQBNColor \"Purple\" (set with lpoptions) does not fit: it must be one of "
      "Black, Red, Green, Blue, Cyan, Magenta, Yellow\npdeprint: note: VQStartNumber \"1000\" (set "
      "with lpoptions) does not fit: it must be a whole number from 1 to 999\n");
  const Attributes job = server().JobAttributes(JobSaidIn(result, "Office"));
  EXPECT_EQ(job.at("VQStartNumber"), "1");
  EXPECT_EQ(job.at("VQBNColor"), "Black");
}

TEST_F(PrintVerb, ADefaultThatDoesNotFitIsToldOfWithWhereItComesFrom) {
  const TemporaryFolder folder;
  server().AddQueue({.name = "Unfit",
                     .ppd = folder.Write("color.ppd", NumberingPPDText(/*color=*/true)),
                     .options = {{"VQStartNumber-default", "1000"},
                                 {"VQBNColor-default", "Purple"},
                                 {"sides-default", "two-sided-long-edge"}},
                     .stopped = "Paused"});
  WriteLpoptions("Dest Unfit VQBNColor=Pink sides=two-sided-long-edge\n");
  EXPECT_EQ(
      PrintOn("Unfit", {}).err,
      "pdeprint: note: VQBNColor \"Pink\" (set with lpoptions) does not fit: it must be one of "
      "Black, Red, Green, Blue, Cyan, Magenta, Yellow\npdeprint: note: VQStartNumber \"1000\" "
      "(a default of the queue) does not fit: it must be a whole number from 1 to 999\n");
}

TEST_F(PrintVerb, OptionsThatTheQueueOffersAreTakenWithTheValuesThatItLists) {
  const TemporaryFolder folder;
  server().AddQueue(
      {.name = "Bins",
       .ppd = folder.Write("bins.ppd", NumberingPPDText(/*color=*/true,
                                                        "*OpenUI *OutputBin/Bin: PickOne\n"
                                                        "*DefaultOutputBin: Upper\n"
                                                        "*OutputBin Upper/Upper: \"\"\n"
                                                        "*OutputBin Lower/Lower: \"\"\n"
                                                        "*CloseUI: *OutputBin\n")),
       .stopped = "Paused"});
  EXPECT_EQ(JobOn("Bins", {"--set", "output-bin=lower"}).at("output-bin"), "lower");
  EXPECT_EQ(
      Refusal(2, {"-d", "Bins", "--set", "output-bin=attic", file_}),
      "pdeprint: output-bin cannot be \"attic\": this printer has no output-bin \"attic\"; it "
      "has upper, lower\n");
  EXPECT_EQ(JobOn("Bins", {"--set", "page-delivery=reverse-order"}).at("page-delivery"),
            "reverse-order");
}

// The usual one makes one picture of a page with any transparency, over the number.
TEST_F(PrintVerb, JobsWithNumbersGoToPostScriptPrintersWithTheRendererThatKeepsThem) {
  server().AddQueue({.name = "Drawing",
                     .ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd",
                     .stopped = "Paused"});
  const auto renderer = [this](const std::vector<std::string> &options) {
    const Attributes job =
        server().JobAttributes(JobSaidIn(PrintOn("Drawing", options), "Drawing"));
    const auto found = job.find("pdftops-renderer");
    return found == job.end() ? "" : found->second;
  };
  EXPECT_EQ("pdftocairo", renderer({"--set", "Valid=On"}));
  EXPECT_EQ("", renderer({"--set", "Valid=Off"}));
  WriteLpoptions("Dest Drawing pdftops-renderer=gs\n");
  EXPECT_EQ("gs", renderer({"--set", "Valid=On"}));
}

TEST_F(PrintVerb, ValuesThatEveryQueueListsAreCheckedBeforeTheJobIsSent) {
  EXPECT_EQ(Refusal(2, {"-d", "Office", "--set", "number-up=3", file_}),
            "pdeprint: number-up cannot be \"3\": this printer has no number-up \"3\"; it has 1, "
            "2, 4, 6, 9, 16\n");
  EXPECT_THAT(Refusal(2, {"-d", "Office", "--set", "orientation-requested=9", file_}),
              HasSubstr("it has portrait, 3, landscape, 4, "));
  EXPECT_THAT(Refusal(2, {"-d", "Bare", "--set", "job-hold-until=25:00", file_}),
              HasSubstr(" no-hold, indefinite, "));
}

TEST_F(PrintVerb, AQueueWithoutAPPDStillPrints) {
  const Attributes job = JobOn("Bare", {"-n", "2"});
  EXPECT_EQ(job.at("copies"), "2");
  EXPECT_FALSE(job.contains("VQBackgroundNumbering"));
}

TEST_F(PrintVerb, SettingsOfATicketThatAQueueWithoutAPPDDoesNotHaveAreLeftOutWithANote) {
  const RunResult result =
      PrintOn("Bare", {"--ticket", Ticket({{"VQBackgroundNumbering", "On"}, {"number-up", "2"}})});
  EXPECT_EQ(result.err,
            "pdeprint: note: VQBackgroundNumbering \"On\" does not fit: this printer has no "
            "VQBackgroundNumbering\n");
  const Attributes job = server().JobAttributes(JobSaidIn(result, "Bare"));
  EXPECT_FALSE(job.contains("VQBackgroundNumbering"));
  EXPECT_EQ(job.at("number-up"), "2");
}
