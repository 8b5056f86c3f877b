// Nothing that is chosen reaches a printer as code, in whatever way it is chosen.

#include <gmock/gmock.h>

#include "tests/host/command/ForeignCode.h"
#include "tests/support/Interpreter.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const char *const kOptions[] = {"VQBackgroundNumbering",
                                "VQBNSize",
                                "VQStartNumber",
                                "Duplex",
                                "PageSize",
                                "VQText",
                                "VQExit",
                                "JCLNote",
                                "copies",
                                "page-ranges"};

// All for one option of a panel, one of the printer and one with custom texts; for the others one.
std::vector<std::string> HostileFor(const std::string &option) {
  if (option == "VQBNSize" || option == "Duplex" || option == "VQText") return Hostile();
  return {Hostile()[1]};
}

// Refused, with a word about it, by a program that sends nothing.
void ExpectRefusal(const RunResult &result, const std::string &word) {
  EXPECT_NE(0, result.status);
  EXPECT_THAT(result.err, StartsWith("pdeprint: "));
  EXPECT_THAT(result.err, HasSubstr(word)) << word << ": " << result.err;
  EXPECT_EQ("", result.out);
}

}  // namespace

TEST_F(ForeignCode, IsWhatItSaysWhereItIsCarriedOut) {
  const std::vector<PrintedPage> pages = PagesOf("%!PS\n" + kCode + '\n');
  ASSERT_EQ(1u, pages.size());
  EXPECT_TRUE(pages[0].Says("MARKED"));
}

TEST_F(ForeignCode, GivenOnTheCommandLineIsRefused) {
  const int before = NewestJob();
  for (const std::string option : kOptions) {
    for (const std::string &value : HostileFor(option)) {
      ExpectRefusal(Print({"--set", option + '=' + value}), " cannot be \"");
    }
  }
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCode, InATicketIsRefused) {
  const int before = NewestJob();
  for (const std::string option : kOptions) {
    for (const std::string &value : HostileFor(option)) {
      ExpectRefusal(Print({"--ticket", Ticket({{option, XmlOf(value)}})}), option);
    }
  }
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCode, InAPresetIsRefused) {
  const int before = NewestJob();
  const fs::path folder = server().home() / ".config/pdeprint/presets";
  fs::create_directories(folder);
  for (const std::string option : kOptions) {
    std::ofstream(folder / "Draft.plist") << TicketText({{option, XmlOf(Hostile()[1])}});
    ExpectRefusal(Print({"--preset", "Draft"}), option);
  }
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCode, AsACustomTextThatWouldEndItsStringIsRefused) {
  const int before = NewestJob();
  for (const std::string option : {"VQText", "VQExit", "JCLNote"}) {
    for (const std::string &value : HostileCustom()) {
      ExpectRefusal(Print({"--set", option + '=' + value}), option);
      ExpectRefusal(Print({"--ticket", Ticket({{option, XmlOf(value)}})}), option);
    }
  }
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCode, AsACustomTextThatIsNotSentAsPostScriptIsRefused) {
  const int before = NewestJob();
  for (const std::string option : {"VQExit", "JCLNote"}) {
    for (const std::string &value :
         {"a) " + kCode, std::string("a\"\n@PJL SET TIMEOUT=1"), "a\n" + kCode, "a>" + kCode}) {
      ExpectRefusal(Print({"--set", option + "=Custom." + value}), option);
      ExpectRefusal(Print({"--set", option + "={Value='" + value + "'}"}), option);
    }
  }
  EXPECT_EQ(before, NewestJob());
}

// libcups does not look at the case of letters, neither in names nor in Custom.
TEST_F(ForeignCode, UnderAnotherSpellingOfAnOptionIsRefused) {
  const int before = NewestJob();
  for (const std::string option : {"vqtext", "VQTEXT", "VqText"}) {
    for (const char *value : {"Custom.a\\", "custom.a\\", "CUSTOM.a\\"}) {
      ExpectRefusal(Print({"--ticket", Ticket({{option, value}})}), "VQText");
    }
  }
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCode, InUnknownOptionsChangesNothingOnPaper) {
  std::map<std::string, std::string> settings;
  int number = 0;
  for (const std::string &value : Hostile()) {
    settings["Unknown" + std::to_string(++number)] = XmlOf(value.substr(0, 1000));
  }
  for (const char *name : {"mirror", "page-border", "media", "printer-resolution", "job-billing"}) {
    settings[name] = XmlOf(Hostile()[1]);
  }
  EXPECT_EQ(Plain(), Printed({"--ticket", Ticket(settings)}));
}

TEST_F(ForeignCode, InOptionsWhoseValuesTheQueueListsIsRefused) {
  const int before = NewestJob();
  for (const std::string option : {"number-up", "job-hold-until", "orientation-requested"}) {
    ExpectRefusal(Print({"--ticket", Ticket({{option, XmlOf(Hostile()[1])}})}), option);
  }
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCode, UnknownOptionsAreRefusedOnTheCommandLine) {
  ExpectRefusal(Print({"--set", "Unknown=" + kCode}), "Unknown");
}

// More than the protocol has room for.
TEST_F(ForeignCode, InAnUnknownOptionThatIsTooLongIsRefused) {
  const int before = NewestJob();
  const RunResult result = Print({"--ticket", Ticket({{"Unknown", XmlOf(Hostile().back())}})});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: the value of \"Unknown\" is too long: it has " +
                std::to_string(Hostile().back().size()) + " bytes, and a job can carry 32767\n",
            result.err);
  EXPECT_EQ(before, NewestJob());
}

TEST_F(ForeignCode, InTheNameOfAnOptionIsNotSentAndNoted) {
  const std::string ticket = Ticket({{"Any\nVQText", "Custom." + kCode}});
  EXPECT_EQ(Plain(), Printed({"--ticket", ticket},
                             "pdeprint: note: \"Any VQText\" is not sent to the printer: no option "
                             "can have this name or this value\n"));
  EXPECT_EQ(Plain(), Printed({"--ticket", Ticket({{"VQText=Custom.a VQNote", "b"}})},
                             "pdeprint: note: \"VQText=Custom.a VQNote\" is not sent to the "
                             "printer: no option can have this name or this value\n"));
}

TEST_F(ForeignCode, InTheUsersOptionsIsLeftOutWithANote) {
  const std::string &plain = Plain();
  WriteLpoptions("Dest Office VQText=Custom.a\\\\ vqnote='Custom.\\\\' Duplex='1) " + kCode +
                 " (' Any='" + kCode + "'\n");
  const std::string duplex = "Duplex \"1) /Helvetica findfont 20 scalefont setf...\"";
  EXPECT_EQ(
      plain,
      Printed({}, "pdeprint: note: " + duplex +
                      " (set with lpoptions) does not fit: this printer has no " + duplex +
                      "; it has None, DuplexNoTumble, DuplexTumble\n"
                      "pdeprint: note: VQText \"Custom.a\\\" (set with lpoptions) "
                      "does not fit: this printer has no VQText \"Custom.a\\\"; it has None\n"
                      "pdeprint: note: vqnote \"Custom.\\\" (set with lpoptions) "
                      "does not fit: this printer has no VQNote \"Custom.\\\"; it has None\n"));
}

TEST_F(ForeignCode, AsACustomTextThatFitsIsAnEscapedString) {
  const std::string printed =
      Printed({"--set", "VQText=Custom.a) " + kCode + " (", "--set", "VQNote=Custom.%!PS\n<41>",
               "--set", "JCLNote=Custom.Ann - 2nd floor, by the lift"});
  EXPECT_THAT(printed, HasSubstr("%%BeginFeature: *CustomVQText True\n"
                                 "(a\\051 /Helvetica findfont 20 scalefont setfont 100 100 moveto "
                                 "\\050MARKED\\051 show showpage \\050)\npop\n"));
  EXPECT_THAT(printed, HasSubstr("%%BeginFeature: *CustomVQNote True\n(%!PS\\012<41>)\npop\n"));
  EXPECT_THAT(printed, HasSubstr("@PJL SET NOTE=\"Ann - 2nd floor, by the lift\"\n"));
  const std::vector<PrintedPage> pages = PagesOf(printed);
  ASSERT_EQ(1u, pages.size());
  EXPECT_EQ("Hello", pages[0].Words());
}

TEST_F(ForeignCode, InTheLabelOfAPageIsReadThereAsText) {
  const std::vector<PrintedPage> pages =
      PagesOf(Printed({"--ticket", Ticket({{"page-label", "1) showpage ("}})}));
  ASSERT_EQ(1u, pages.size());
  EXPECT_TRUE(pages[0].Says("1) showpage (")) << pages[0].Words();
}
