// `pdeprint print`: what is sent.

#include <gmock/gmock.h>

#include "tests/host/command/PrintingProgram.h"

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(PrintVerb, SaysTheRequestIdOfTheJob) {
  const int before = NewestJob();
  const RunResult result = PrintOn("Office");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "request id is Office-" + std::to_string(before + 1) + '\n');
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(server().JobAttributes(before + 1).at("job-printer-uri"),
              EndsWith("/printers/Office"));
}

TEST_F(PrintVerb, SendsAllFilesAsOneJob) {
  const Arguments texts = {"first", std::string(100000, 's'), "third"};
  Arguments arguments = {"print", "-d", "Bare"};
  for (const std::string &text : texts) {
    arguments.push_back(folder_.Write("file" + std::to_string(arguments.size()), text));
  }
  const int before = NewestJob();
  const int job = JobSaidIn(Run(arguments), "Bare");
  EXPECT_EQ(job, before + 1);
  EXPECT_EQ(server().DocumentsOf(job), texts);
}

TEST_F(PrintVerb, TheJobHasTheSettingsOfTheTicket) {
  const Attributes job = JobOn("Office", {"--ticket", Ticket({{"VQBackgroundNumbering", "On"},
                                                              {"VQBNSize", "Small"},
                                                              {"VQBNDensity", "Dark"},
                                                              {"VQBNColor", "Blue"},
                                                              {"VQStartNumber", "999"},
                                                              {"Duplex", "DuplexTumble"},
                                                              {"copies", "2"},
                                                              {"page-ranges", "1-3,8-"},
                                                              {"Vendor", "a b,c \"d\""}})});
  EXPECT_EQ(job.at("VQBackgroundNumbering"), "On");
  EXPECT_EQ(job.at("VQBNSize"), "Small");
  EXPECT_EQ(job.at("VQBNDensity"), "Dark");
  EXPECT_EQ(job.at("VQBNColor"), "Blue");
  EXPECT_EQ(job.at("VQStartNumber"), "999");
  EXPECT_EQ(job.at("Duplex"), "DuplexTumble");
  EXPECT_EQ(job.at("copies"), "2");
  EXPECT_THAT(job.at("page-ranges"), StartsWith("1-3,8-")) << job.at("page-ranges");
  EXPECT_EQ(job.at("Vendor"), "a b,c \"d\"");
}

TEST_F(PrintVerb, TheTicketIsOnlyRead) {
  const std::string ticket = Ticket({{"VQBNSize", "Small"}});
  JobOn("Office", {"--ticket", ticket, "--set", "Size=Large"});
  EXPECT_EQ(ContentOf(ticket), TicketText({{"VQBNSize", "Small"}}));
}

TEST_F(PrintVerb, TheTicketGoesBeforeThePresetAndTheCommandLineBeforeAll) {
  WritePreset("Draft", TicketText({{"VQBackgroundNumbering", "On"},
                                   {"VQBNSize", "Small"},
                                   {"VQBNDensity", "Dark"},
                                   {"VQBNColor", "Red"},
                                   {"copies", "2"}}));
  const Attributes job =
      JobOn("Office", {"--preset", "Draft", "--ticket",
                       Ticket({{"VQBNSize", "Large"}, {"VQBNDensity", "Light"}, {"copies", "3"}}),
                       "--set", "Density=Medium", "-n", "5"});
  EXPECT_EQ(job.at("VQBackgroundNumbering"), "On");
  EXPECT_EQ(job.at("VQBNColor"), "Red");
  EXPECT_EQ(job.at("VQBNSize"), "Large");
  EXPECT_EQ(job.at("VQBNDensity"), "Medium");
  EXPECT_EQ(job.at("copies"), "5");
}

TEST_F(PrintVerb, ThePresetLastUsedIsWhatTheDialogHasKept) {
  EXPECT_EQ(RefusalOn("Office", 1, {"-P", "Last Used"}),
            "pdeprint: there is no preset \"Last Used\" yet: the dialog keeps it when it has "
            "printed\n");
  WritePreset(".last-used", TicketText({{"VQStartNumber", "7"}}));
  EXPECT_EQ(JobOn("Office", {"-P", "Last Used"}).at("VQStartNumber"), "7");
}

TEST_F(PrintVerb, SetsOptionsOfThePrinterAndOfEveryJob) {
  const Attributes job = JobOn("Office", {"--set", "InputSlot=Tray1", "--set", "number-up=2",
                                          "--set", "VQStartNumber=25", "--set", "job-priority=60"});
  EXPECT_EQ(job.at("InputSlot"), "Tray1");
  EXPECT_EQ(job.at("number-up"), "2");
  EXPECT_EQ(job.at("VQStartNumber"), "25");
  EXPECT_EQ(job.at("job-priority"), "60");
}

TEST_F(PrintVerb, PageRangesMayBeWrittenInAnyWay) {
  const std::string pages = "8, 1 - 3";
  EXPECT_EQ(JobOn("Office", {"--set", "page-ranges=" + pages}).at("page-ranges"), "1-3,8-8");
  EXPECT_EQ(JobOn("Office", {"--ticket", Ticket({{"page-ranges", pages}})}).at("page-ranges"),
            "1-3,8-8");
}

TEST_F(PrintVerb, AStartNumberIsSentAsThePPDListsIt) {
  EXPECT_EQ(JobOn("Office", {"--set", "StartNumber=025"}).at("VQStartNumber"), "25");
}

TEST_F(PrintVerb, TheJobIsNamedAfterItsFiles) {
  EXPECT_EQ(JobOn("Bare").at("job-name"), "page.ps");
  const RunResult result =
      Run({"print", "-d", "Bare", file_, folder_.Write("a", "a"), folder_.Write("b", "b")});
  EXPECT_EQ(server().JobAttributes(JobSaidIn(result, "Bare")).at("job-name"), "page.ps and 2 more");
}

TEST_F(PrintVerb, TheTitleNamesTheJob) {
  EXPECT_EQ(JobOn("Bare", {"-t", "Größe \"A\""}).at("job-name"), "Größe \"A\"");
}

TEST_F(PrintVerb, NamesOfFilesMayBeginWithADash) {
  RunOptions options = Options();
  options.folder = folder_.path();
  folder_.Write("-n", "text");
  const int job = JobSaidIn(RunPdeprint({"print", "-d", "Bare", "--", "-n"}, options), "Bare");
  EXPECT_EQ(server().JobAttributes(job).at("job-name"), "-n");
}

TEST_F(PrintVerb, NeedsNeitherADisplayNorALocale) {
  const std::string file = folder_.Write("Größe.ps", kPage);
  for (const std::optional<std::string> &display : {std::optional<std::string>(), {":4711"}}) {
    const RunResult result =
        Run({"print", "-d", "Office", "--set", "Valid=On", "-t", "Größe", file},
            {{"DISPLAY", display}, {"LANG", "C"}, {"LC_ALL", "C"}, {"LANGUAGE", std::nullopt}});
    EXPECT_EQ(result.err, "");
    const Attributes job = server().JobAttributes(JobSaidIn(result, "Office"));
    EXPECT_EQ(job.at("job-name"), "Größe");
    EXPECT_EQ(job.at("VQBackgroundNumbering"), "On");
  }
}

TEST_F(PrintVerb, AJobThatWasSentIsThereEvenIfNobodyCanBeToldItsNumber) {
  const int before = NewestJob();
  RunOptions options = Options();
  options.out = "-";
  const RunResult result = RunPdeprint({"print", "-d", "Bare", file_}, options);
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("cannot write the results"));
  EXPECT_EQ(NewestJob(), before + 1);
}

TEST_F(PrintVerb, PrintsWithoutAnyExtensionBundle) {
  const fs::path program = folder_.path() / "pdeprint";
  CopyPdeprint(folder_.path());
  const RunResult result = RunProgram(
      {program, "print", "-d", "Office", "-n", "2", "--set", "Duplex=DuplexTumble", file_},
      Options());
  EXPECT_EQ(result.err, "");
  const Attributes job = server().JobAttributes(JobSaidIn(result, "Office"));
  EXPECT_EQ(job.at("copies"), "2");
  EXPECT_EQ(job.at("Duplex"), "DuplexTumble");
  EXPECT_FALSE(job.contains("VQBackgroundNumbering"));
}
