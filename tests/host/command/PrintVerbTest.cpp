// `pdeprint print` on a real print server.

#include <chrono>
#include <filesystem>

#include "tests/host/command/ServedProgram.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/SilentServer.h"
#include "tests/support/Slowdown.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using Attributes = std::map<std::string, std::string>;

const char kPage[] =
    "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n/Helvetica findfont 24 scalefont "
    "setfont\n72 700 moveto (Hello) show showpage\n%%EOF\n";

// Ones whose jobs are only looked at are stopped.
class PrintVerb : public ServedProgram {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    newest_ = 0;
    const TemporaryFolder folder;
    const fs::path color = folder.Write("color.ppd", NumberingPPDText(/*color=*/true));
    const fs::path mono = folder.Write("mono.ppd", NumberingPPDText(/*color=*/false));
    server().AddQueue({.name = "Office", .ppd = color, .stopped = "Paused", .is_default = true});
    server().AddQueue({.name = "Mono", .ppd = mono, .stopped = "Paused"});
    server().AddQueue({.name = "Bare", .stopped = "Paused"});
    server().AddQueue({.name = "Prints", .ppd = color});
    server().AddQueue({.name = "Raw"});
    server().AddQueue({.name = "Rejecting", .ppd = color, .rejecting = "Gone for lunch"});
  }

  // The number of the newest job that the server has ever had.
  static int NewestJob() {
    while (!server().JobAttributes(newest_ + 1).empty()) ++newest_;
    return newest_;
  }

  // The number of the job that the program says it has sent; it must be the server's newest.
  static int JobSaidIn(const RunResult &result, const std::string &queue) {
    const int job = NewestJob();
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "request id is " + queue + '-' + std::to_string(job) + '\n');
    return job;
  }

  RunResult PrintOn(const std::string &queue, const Arguments &more = {}) const {
    return Run(Arguments{"print", "-d", queue} + more + Arguments{file_});
  }

  // What the server knows of the job, which is sent without a message.
  Attributes JobOn(const std::string &queue, const Arguments &more = {}) const {
    const int before = NewestJob();
    const RunResult result = PrintOn(queue, more);
    EXPECT_EQ(result.err, "");
    const int job = JobSaidIn(result, queue);
    EXPECT_EQ(job, before + 1);
    return server().JobAttributes(job);
  }

  // The message of a run that ends with this status and makes no job.
  static std::string Refusal(int status, const Arguments &arguments,
                             const EnvironmentChanges &changes = {}) {
    const int before = NewestJob();
    const RunResult result = Run(Arguments{"print"} + arguments, changes);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(NewestJob(), before) << "a job was made";
    return result.err;
  }

  std::string RefusalOn(const std::string &queue, int status, const Arguments &more) const {
    return Refusal(status, Arguments{"-d", queue} + more + Arguments{file_});
  }

  static void WritePreset(const std::string &name, const std::string &text) {
    const fs::path folder = server().home() / ".config/pdeprint/presets";
    fs::create_directories(folder);
    std::ofstream(folder / (name + ".plist")) << text;
  }

  const std::string file_ = folder_.Write("page.ps", kPage);

 private:
  static inline int newest_ = 0;
};

// Shows a difference of jobs that were sent otherwise alike.
Attributes WhatTheUserAskedFor(Attributes attributes) {
  std::erase_if(attributes, [](const auto &attribute) {
    for (const char *of_the_job : {"job-id", "job-uri", "job-uuid", "job-more-info", "time-at-",
                                   "date-time-at-", "job-printer-up-time", "VQ"}) {
      if (attribute.first.starts_with(of_the_job)) return true;
    }
    return false;
  });
  return attributes;
}

}  // namespace

// What is sent

TEST_F(PrintVerb, SaysTheRequestIdOfTheJob) {
  const int before = NewestJob();
  const RunResult result = PrintOn("Office");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "request id is Office-" + std::to_string(before + 1) + '\n');
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(
      server().JobAttributes(before + 1).at("job-printer-uri").ends_with("/printers/Office"));
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
  EXPECT_TRUE(job.at("page-ranges").starts_with("1-3,8-")) << job.at("page-ranges");
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
                       "--set", "Density=Medium", "--set", "copies=4", "-n", "5"});
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
  EXPECT_TRUE(Holds(result.err, "cannot write the results")) << result.err;
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

// The queue, and what it gives its jobs

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
  EXPECT_TRUE(message.starts_with("pdeprint: no default queue on the print server " +
                                  server().address() + ": LPDEST environment variable "))
      << message;
  EXPECT_TRUE(Holds(message, "; there is Bare, Mono, Office, ")) << message;
}

TEST_F(PrintVerb, AnInstancePrintsOnItsQueueWithItsOptions) {
  WriteLpoptions("Dest Office/draft VQBNDensity=Light number-up=4\n");
  const Attributes job =
      server().JobAttributes(JobSaidIn(PrintOn("Office/draft", {"--set", "Valid=On"}), "Office"));
  EXPECT_TRUE(job.at("job-printer-uri").ends_with("/printers/Office"));
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

TEST_F(PrintVerb, AUsersOptionThatThePanelDoesNotAllowIsNotSent) {
  WriteLpoptions("Dest Office VQStartNumber=1000 VQBNColor=Purple\n");
  const Attributes job = JobOn("Office", {"--set", "Valid=On"});
  EXPECT_EQ(job.at("VQStartNumber"), "1");
  EXPECT_EQ(job.at("VQBNColor"), "Black");
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

// What is refused

TEST_F(PrintVerb, ASettingThatIsNotAllowedIsWrongUsage) {
  for (const char *number : {"0", "1000", "-1", "1.5", "many", ""}) {
    const std::string text = number;
    EXPECT_EQ(RefusalOn("Office", 2, {"--set", "Valid=On", "--set", "StartNumber=" + text}),
              "pdeprint: StartNumber cannot be \"" + text +
                  "\": it must be a whole number from 1 to 999\n");
  }
  EXPECT_EQ(RefusalOn("Office", 2, {"--set", "Color=Purple"}),
            "pdeprint: Color cannot be \"Purple\": it must be one of Black, Red, Green, Blue, "
            "Cyan, Magenta, Yellow\n");
}

TEST_F(PrintVerb, AChoiceThatThePPDDoesNotListIsWrongUsage) {
  EXPECT_EQ(RefusalOn("Office", 2, {"--set", "PageSize=A0"}),
            "pdeprint: PageSize cannot be \"A0\": this printer has no PageSize \"A0\"; it has A4, "
            "Letter, A3\n");
}

TEST_F(PrintVerb, AColorIsWrongUsageOnAMonochromePrinter) {
  EXPECT_EQ(RefusalOn("Mono", 2, {"--set", "Valid=On", "--set", "Color=Red"}),
            "pdeprint: Color cannot be \"Red\": this printer has no VQBNColor \"Red\"; it has "
            "Black\n");
}

TEST_F(PrintVerb, ASettingThatTheQueueDoesNotHaveIsWrongUsage) {
  EXPECT_EQ(RefusalOn("Bare", 2, {"--set", "Valid=On"}),
            "pdeprint: Valid cannot be \"On\": this printer has no VQBackgroundNumbering\n");
  EXPECT_EQ(
      RefusalOn("Bare", 2, {"--set", "Duplex=None"}),
      "pdeprint: --set Duplex=None: there is no setting \"Duplex\"; there are Color, "
      "Density, Size, StartNumber, Valid, the options of the printer and of every job, such as "
      "copies\n");
}

TEST_F(PrintVerb, AnEmptyValueIsWrongUsage) {
  EXPECT_EQ(RefusalOn("Office", 2, {"--set", "media="}),
            "pdeprint: media cannot be \"\": it must have a value\n");
}

TEST_F(PrintVerb, AValueThatIsNoTextIsWrongUsage) {
  EXPECT_EQ(RefusalOn("Office", 2, {"--set", "media=R\xf6t"}),
            "pdeprint: media cannot be \"Röt\": it is not UTF-8\n");
}

TEST_F(PrintVerb, CopiesThatAreNoneAreWrongUsage) {
  for (const char *copies : {"0", "-1", "two"}) {
    EXPECT_EQ(RefusalOn("Office", 2, {"-n", copies}),
              "pdeprint: --copies: \"" + std::string(copies) +
                  "\" is not a number of copies; write a whole number from 1 to 9999\n");
  }
}

TEST_F(PrintVerb, AValueOfTheTicketThatIsNotAllowedIsRefused) {
  for (const char *number : {"0", "1000", "025"}) {
    EXPECT_EQ(RefusalOn("Office", 1, {"--ticket", Ticket({{"VQStartNumber", number}})}),
              "pdeprint: the job's VQStartNumber is \"" + std::string(number) +
                  "\": it must be a whole number from 1 to 999; mend it with --set "
                  "StartNumber=VALUE\n");
  }
}

TEST_F(PrintVerb, AValueOfTheTicketThatThePPDDoesNotListIsRefused) {
  EXPECT_EQ(RefusalOn("Office", 1, {"--ticket", Ticket({{"PageSize", "A0"}})}),
            "pdeprint: the job's PageSize is \"A0\": this printer has no PageSize \"A0\"; it has "
            "A4, Letter, A3; mend it with --set PageSize=VALUE\n");
}

TEST_F(PrintVerb, AColorOfTheTicketThatThePrinterLacksGivesWayWithANote) {
  const RunResult result = PrintOn("Mono", {"--ticket", Ticket({{"VQBNColor", "Red"}})});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "pdeprint: note: VQBNColor \"Red\" does not fit: this printer has no VQBNColor "
            "\"Red\"; it has Black\n");
  EXPECT_EQ(
      server().JobAttributes(JobSaidIn({.status = 0, .out = result.out}, "Mono"))["VQBNColor"],
      "Black");
}

TEST_F(PrintVerb, AValueOfThePresetThatIsNotAllowedIsRefused) {
  WritePreset("Draft", TicketText({{"Duplex", "Both"}}));
  EXPECT_EQ(RefusalOn("Office", 1, {"--preset", "Draft"}),
            "pdeprint: the job's Duplex is \"Both\": this printer has no Duplex \"Both\"; it has "
            "None, DuplexNoTumble, DuplexTumble; mend it with --set Duplex=VALUE\n");
}

TEST_F(PrintVerb, TheCommandLineMendsATicket) {
  const Attributes job =
      JobOn("Office", {"--ticket", Ticket({{"VQStartNumber", "1000"}}), "--set", "StartNumber=10"});
  EXPECT_EQ(job.at("VQStartNumber"), "10");
}

TEST_F(PrintVerb, AnUnknownPresetIsRefusedWithTheKnownOnes) {
  EXPECT_EQ(RefusalOn("Office", 1, {"--preset", "Draft"}),
            "pdeprint: there is no preset \"Draft\"; there are none yet: the dialog saves them\n");
  WritePreset("Final", TicketText({}));
  WritePreset("Poster", TicketText({}));
  EXPECT_EQ(RefusalOn("Office", 1, {"--preset", "Draft"}),
            "pdeprint: there is no preset \"Draft\"; there are: Final, Poster\n");
}

TEST_F(PrintVerb, APresetWithAValueThatIsNoStringIsRefusedByItsName) {
  WritePreset("Draft",
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
              "<key>VQBNSize</key><true/></dict></plist>\n");
  EXPECT_EQ(RefusalOn("Office", 1, {"--preset", "Draft"}),
            "pdeprint: cannot use \"Draft\": the value of VQBNSize is not a string\n");
}

TEST_F(PrintVerb, AMissingTicketIsRefused) {
  const std::string ticket = folder_.path() / "absent.plist";
  EXPECT_EQ(RefusalOn("Office", 1, {"--ticket", ticket}),
            "pdeprint: cannot read ticket " + ticket + ": no such file\n");
}

TEST_F(PrintVerb, AFileThatCannotBePrintedSendsNothing) {
  const std::string missing = folder_.path() / "missing";
  const std::string empty = folder_.Write("empty", "");
  const std::string folder = folder_.path();
  for (const auto &[file, reason] : {std::pair(missing, "no such file"),
                                     {empty, "the file is empty"},
                                     {folder, "it is a folder"}}) {
    EXPECT_EQ(Refusal(1, {"-d", "Office", file_, file}),
              "pdeprint: cannot print " + file + ": " + reason + '\n');
  }
}

TEST_F(PrintVerb, FilesAreLookedAtBeforeTheServerIsAsked) {
  const LocalPort port;
  const std::string missing = folder_.path() / "missing";
  EXPECT_EQ(Refusal(1, {"-d", "Office", missing}, {{"CUPS_SERVER", port.address()}}),
            "pdeprint: cannot print " + missing + ": no such file\n");
}

TEST_F(PrintVerb, AFileThatTheUserMayNotReadSendsNothing) {
  const std::string secret = folder_.Write("secret", "secret");
  fs::permissions(secret, fs::perms::none);
  const int before = NewestJob();
  const std::string message = InChild([&] {
    if (!LosePrivilegesOfPrograms()) return std::string("(privileges stay)");
    return Run({"print", "-d", "Office", secret}).err;
  });
  EXPECT_EQ(message, "pdeprint: cannot print " + secret + ": Permission denied\n");
  EXPECT_EQ(NewestJob(), before);
}

TEST_F(PrintVerb, NoFileIsWrongUsage) {
  EXPECT_TRUE(Holds(Refusal(2, {"-d", "Office"}), "FILE is required"));
}

// Servers and queues that do not print

TEST_F(PrintVerb, AnUnknownQueueIsRefusedWithTheKnownOnes) {
  const std::string message = RefusalOn("Ofice", 1, {});
  EXPECT_TRUE(message.starts_with("pdeprint: the print server " + server().address() +
                                  " has no queue \"Ofice\"; there is Bare, "))
      << message;
  EXPECT_TRUE(Holds(message, ", Office, ")) << message;
}

TEST_F(PrintVerb, AQueueThatTakesNoJobsSaysSoInTheServersWords) {
  EXPECT_EQ(RefusalOn("Rejecting", 1, {}),
            "pdeprint: the print server " + server().address() +
                " refuses the job: Destination \"Rejecting\" is not accepting jobs\n");
}

TEST_F(PrintVerb, WhereNothingListensItSaysSo) {
  const LocalPort port;
  EXPECT_EQ(Refusal(1, {"-d", "Office", file_}, {{"CUPS_SERVER", port.address()}}),
            "pdeprint: no print server at " + port.address() +
                ": Connection refused; is it running? CUPS_SERVER names another\n");
}

TEST_F(PrintVerb, ASilentServerIsNotWaitedForLongerThanTheTimeout) {
  const SilentServer silent;
  const auto begin = Clock::now();
  EXPECT_EQ(
      Refusal(1, {"-d", "Office", "--timeout", "1", file_}, {{"CUPS_SERVER", silent.address()}}),
      "pdeprint: the print server " + silent.address() + " does not answer within 1 s\n");
  EXPECT_LT(Clock::now() - begin, kSlowdown * 4s);
}

// Waiting for the job

class PrintVerbWaiting : public PrintVerb {
 protected:
  // Starts to print on the queue, and answers when the job is there.
  void Begin(const std::string &queue) {
    const int before = NewestJob();
    program_ = std::make_unique<RunningProgram>(
        Arguments{kPdeprint, "print", "--wait", "-d", queue, file_}, Options());
    ASSERT_TRUE(Becomes([before] { return NewestJob() > before; }));
    job_ = NewestJob();
    id_ = queue + '-' + std::to_string(job_);
  }

  // What has come so far on a stream of the program, which is still running.
  std::string Said(int stream) const {
    return ContentOf("/proc/" + std::to_string(program_->pid()) + "/fd/" + std::to_string(stream));
  }

  std::unique_ptr<RunningProgram> program_;
  int job_ = 0;
  std::string id_;
};

TEST_F(PrintVerbWaiting, EndsWhenTheJobHasBeenPrinted) {
  const RunResult result =
      PrintOn("Prints", {"--wait", "--set", "Valid=On", "--set", "StartNumber=25"});
  const std::string printed = server().OutputOf(NewestJob());
  JobSaidIn(result, "Prints");
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(Holds(printed, "(Hello) show"));
  EXPECT_TRUE(Holds(printed, "%%BeginFeature: *VQBackgroundNumbering On\n"));
  EXPECT_TRUE(Holds(printed, "%%BeginFeature: *VQStartNumber 25\n"));
}

TEST_F(PrintVerbWaiting, EndsWhenAQueueWithoutAPPDHasPrinted) {
  const RunResult result = PrintOn("Raw", {"--wait"});
  const std::string printed = server().OutputOf(NewestJob());
  JobSaidIn(result, "Raw");
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(printed, kPage);
}

TEST_F(PrintVerbWaiting, SaysThatAStoppedQueueIsWaitedForAndGoesOnWithIt) {
  server().AddQueue({.name = "Empty", .stopped = "Out of paper, ask Ann"});
  Begin("Empty");
  EXPECT_TRUE(Becomes([this] { return !Said(2).empty(); }));
  EXPECT_EQ(Said(2), "pdeprint: waiting: Out of paper, ask Ann\n");
  EXPECT_EQ(Said(1), "request id is " + id_ + '\n');
  server().StartQueue("Empty");
  const RunResult result = program_->Wait();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "pdeprint: waiting: Out of paper, ask Ann\n");
  EXPECT_EQ(server().OutputOf(job_), kPage);
}

TEST_F(PrintVerbWaiting, SaysThatAHeldJobIsWaitedFor) {
  WriteLpoptions("Dest Raw job-hold-until=indefinite\n");
  Begin("Raw");
  EXPECT_TRUE(Becomes([this] { return !Said(2).empty(); }));
  EXPECT_EQ(Said(2), "pdeprint: waiting: " + id_ + " is held\n");
  server().ReleaseJob(job_);
  EXPECT_EQ(program_->Wait().status, 0);
}

TEST_F(PrintVerbWaiting, ACanceledJobIsAFailure) {
  Begin("Office");
  server().Run({"cancel", id_});
  const RunResult result = program_->Wait();
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "request id is " + id_ + '\n');
  EXPECT_TRUE(Holds(result.err, "pdeprint: " + id_ + " was canceled")) << result.err;
}

TEST_F(PrintVerbWaiting, AnAbortedJobIsAFailureInThePrintersWords) {
  server().AddQueue(
      {.name = "Broken", .options = {{"printer-error-policy", "abort-job"}}, .broken = true});
  const RunResult result = PrintOn("Broken", {"--wait"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "pdeprint: Broken-" + std::to_string(NewestJob()) +
                            " was aborted: The lamp is broken\n");
}

TEST_F(PrintVerbWaiting, AJobThatHasGoneWithItsQueueIsAFailure) {
  server().AddQueue({.name = "Leaving", .stopped = "Paused"});
  Begin("Leaving");
  server().Run({"/usr/sbin/lpadmin", "-x", "Leaving"});
  const RunResult result = program_->Wait();
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Holds(result.err, id_ + " was sent, but: the print server ")) << result.err;
}

TEST_F(PrintVerb, AnEndFromOutsideTakesTheJobBackThatIsBeingSent) {
  const std::vector<int> before = server().LiveJobs();
  TemporaryFolder folder;
  const fs::path large = folder.Write("large.ps", kPage);
  fs::resize_file(large, 400'000'000);
  RunningProgram program({kPdeprint, "print", "-d", "Office", large.string()},
                         {.environment = server().Environment()});
  while (server().LiveJobs() == before && !program.HasEnded(std::chrono::milliseconds(5))) continue;
  server().Freeze();
  program.Signal(SIGINT);
  EXPECT_FALSE(program.HasEnded(std::chrono::milliseconds(100))) << "the job is to be taken back";
  server().GoOn();
  const RunResult result = program.Wait();
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_NE(std::string::npos, result.err.find("cancel")) << result.err;
  EXPECT_EQ(before, server().LiveJobs());
}

TEST_F(PrintVerb, ChoicesThatThePrinterForbidsAreNoted) {
  const RunResult result =
      PrintOn("Office", {"--set", "Duplex=DuplexTumble", "--set", "MediaType=Transparency"});
  EXPECT_EQ(0, result.status);
  EXPECT_NE(std::string::npos, result.err.find("cannot be combined on this printer")) << result.err;
}
