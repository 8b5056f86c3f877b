// `pdeprint print`: what is refused.

#include <gmock/gmock.h>

#include "tests/host/command/PrintingProgram.h"
#include "tests/support/ChildProcess.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

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

TEST_F(PrintVerb, CopiesThatAreGivenTwiceAreRefused) {
  EXPECT_EQ(
      RefusalOn("Office", 2, {"-n", "2", "--set", "copies=3"}),
      "pdeprint: the copies are given twice, with --copies and with --set copies; leave one of "
      "them out\n");
}

TEST_F(PrintVerb, AValueOfTheTicketThatIsNotAllowedIsRefused) {
  for (const char *number : {"0", "1000"}) {
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
              "<key>VQBNSize</key><dict/></dict></plist>\n");
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
  EXPECT_EQ(Refusal(2, {"-d", "Office"}),
            "pdeprint: FILE is required; `pdeprint print --help` says more\n");
  EXPECT_EQ(Refusal(2, {"-d", "Office", "--nope"}),
            "pdeprint: there is no option \"--nope\"; `pdeprint print --help` lists them\n");
}
