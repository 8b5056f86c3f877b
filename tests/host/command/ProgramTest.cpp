// What all verbs have in common.

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/host/command/BuiltProgram.h"

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(Program, MessagesNeitherControlTheTerminalNorBreakOff) {
  const RunResult result =
      RunPdeprint({"settings", "--ppd", kColorPPD, "--set", "Fo\x1b[2Jo\nbar=Red"});
  EXPECT_EQ(2, result.status);
  EXPECT_EQ(1, std::ranges::count(result.err, '\n')) << result.err;
  EXPECT_THAT(result.err, HasSubstr("--set Fo [2Jo bar=Red: "));
}

// Its settings are not known then.
TEST(Program, NamesTheBundleThatIsLeftOutWhereASettingIsNotThere) {
  TemporaryFolder folder;
  CopyPdeprint(folder.path());
  const fs::path bundle = folder.path() / "BackgroundNumbering.plugin";
  fs::copy(BINARY_DIRECTORY "/BackgroundNumbering.plugin", bundle, fs::copy_options::recursive);
  fs::resize_file(bundle / "BackgroundNumbering", 1000);
  const RunResult result = RunProgram(
      {(folder.path() / "pdeprint").string(), "settings", "--ppd", kColorPPD, "--set", "Valid=On"});
  EXPECT_EQ(2, result.status);
  EXPECT_THAT(result.err, HasSubstr("BackgroundNumbering is left out: "));
  EXPECT_THAT(result.err, HasSubstr("there is no setting \"Valid\""));
}

// Results that reach nobody are no success.
TEST(Program, FailsIfItsResultsCannotBeWritten) {
  for (const char *out : {"/dev/full", "-"}) {
    for (const Arguments &arguments :
         {Arguments{"check", kColorPPD}, Arguments{"check", "--json", kColorPPD},
          Arguments{"settings", "--ppd", kColorPPD}}) {
      const RunResult result = RunPdeprint(arguments, {.out = out});
      EXPECT_EQ(1, result.status) << arguments[0] << " to " << out;
      EXPECT_THAT(result.err, StartsWith("pdeprint: "));
    }
  }
}

TEST(Program, WritesTheTicketWholeWithItsOutputClosed) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  const RunResult result = RunPdeprint(
      {"settings", "--ppd", kColorPPD, "--ticket", ticket, "--set", "Size=Large"}, {.out = "-"});
  EXPECT_FALSE(result.timed_out);
  EXPECT_THAT(ContentOf(ticket), StartsWith("<?xml"));
  EXPECT_THAT(ContentOf(ticket), EndsWith("</plist>"));
}

TEST(Program, RefusesWrongUsage) {
  for (const Arguments &arguments : {
           Arguments{},
           Arguments{"print"},
           Arguments{"--nothing"},
           Arguments{"check"},
           Arguments{"check", "--nothing", kColorPPD},
           Arguments{"bogus"},
           Arguments{"settings", "--ppd"},
           Arguments{"settings", "--ppd", kColorPPD, "stray"},
           Arguments{"settings", "--ppd", kColorPPD, "--snapshot", "x.png"},
           Arguments{"show", "--ppd", kColorPPD, kColorPPD},
           Arguments{"show", "--ppd", kColorPPD, "-d", "Office"},
           Arguments{"settings", "--ppd", kColorPPD, "-d", "Office"},
           Arguments{"queues", "--timeout", "0"},
           Arguments{"queues", "--timeout", "soon"},
           Arguments{"queues", "stray"},
           Arguments{"print", "--json", kColorPPD},
           Arguments{"show", "--warm", "--json"},
           Arguments{"portal"},
           Arguments{"portal", "--enable", "--status"},
           Arguments{"check", kColorPPD, "--ticket", "x.plist"},
           Arguments{"check", kColorPPD, "--plugin"},
           Arguments{"settings", "--ppd", kColorPPD, "--ticket", ""},
           Arguments{"settings", "--ppd", kColorPPD, "--set", "Valid=On", "Size=Large"},
       }) {
    const RunResult result = RunPdeprint(arguments);
    EXPECT_EQ(2, result.status) << testing::PrintToString(arguments);
    EXPECT_EQ("", result.out);
    EXPECT_THAT(result.err, HasSubstr("--help"));
  }
}

TEST(Program, HelpsWithEachVerb) {
  const RunResult help = RunPdeprint({"--help"});
  EXPECT_EQ(0, help.status);
  for (const char *part : {"show", "check", "settings", "--version"}) {
    EXPECT_THAT(help.out, HasSubstr(part)) << part << help.out;
  }
  const std::map<std::string, Arguments> options = {
      {"show",
       {"--ppd FILE", "--ticket FILE", "--plugin BUNDLE", "--snapshot PNG", "--queue QUEUE",
        "--preset PRESET", "--wait", "--timeout SECONDS"}},
      {"print",
       {"--queue QUEUE", "--ticket FILE", "--set NAME=VALUE", "--copies COPIES", "--wait",
        "REQUIRED"}},
      {"queues", {"--json", "--timeout SECONDS"}},
      {"check", {"PPD", "--plugin BUNDLE", "--json", "--queue QUEUE"}},
      {"settings",
       {"--ppd FILE", "--ticket FILE", "--plugin BUNDLE", "--set NAME=VALUE", "--json",
        "--queue QUEUE"}},
  };
  for (const auto &[verb, parts] : options) {
    const RunResult result = RunPdeprint({verb, "--help"});
    EXPECT_EQ(0, result.status) << verb;
    EXPECT_EQ("", result.err);
    for (const std::string &part : parts) EXPECT_THAT(result.out, HasSubstr(part)) << verb << part;
  }
}

TEST(Program, TellsItsVersion) {
  const RunResult result = RunPdeprint({"--version"});
  EXPECT_EQ(0, result.status);
  EXPECT_THAT(result.out, StartsWith("pdeprint "));
  EXPECT_THAT(result.out, HasSubstr("."));
}

TEST(Program, WorksInAnyLocale) {
  TemporaryFolder folder;
  const fs::path ppd = folder.path() / "Drucker größer 日本" / "Färber.ppd";
  fs::create_directories(ppd.parent_path());
  fs::copy_file(kColorPPD, ppd);
  for (const EnvironmentChanges &locale : {
           EnvironmentChanges{{"LANG", "de_DE"}},
           EnvironmentChanges{{"LC_ALL", "xx_YY"}},
           EnvironmentChanges{{"LANG", {}}, {"LC_ALL", {}}, {"LC_CTYPE", {}}},
           EnvironmentChanges{{"LC_ALL", "C"}},
           EnvironmentChanges{{"LC_ALL", "C.UTF-8"}},
           EnvironmentChanges{{"LANG", ""}, {"LC_ALL", ""}},
           EnvironmentChanges{{"HOME", {}}},
           EnvironmentChanges{{"HOME", "/nonexistent"}},
       }) {
    RunOptions options{.environment = locale};
    const std::string ticket = (ppd.parent_path() / "Auftrag 日本.plist").string();
    const RunResult result =
        Settings(ppd.string(),
                 {"--ticket", ticket, "--set", "StartNumber=25", "--set", "Color=Red"}, options);
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_THAT(result.out, HasSubstr("  VQStartNumber=25\n"));
    EXPECT_THAT(result.out, HasSubstr("Ticket: " + ticket + "\n"));
    EXPECT_THAT(ContentOf(ticket), HasSubstr("<string>25</string>"));
    fs::remove(ticket);

    const RunResult check = RunPdeprint({"check", ppd.string()}, options);
    EXPECT_EQ(0, check.status) << check.err;
    EXPECT_EQ(ppd.string() + ": panel offered, color printer, by the printer\n", check.out);
  }
}

TEST(Program, LoadsABundleFromAnyPath) {
  TemporaryFolder folder;
  fs::copy(BINARY_DIRECTORY "/BackgroundNumbering.plugin", folder.path() / "Größer 日本.plugin",
           fs::copy_options::recursive);
  const RunResult result =
      RunPdeprint({"check", "--plugin", "Größer 日本.plugin", kColorPPD},
                  {.environment = {{"LC_ALL", "C"}}, .folder = folder.path().string()});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, HasSubstr("panel offered"));
}

// File names are bytes, and so are the values of variables.
TEST(Program, TakesArgumentsAndVariablesThatAreNoText) {
  TemporaryFolder folder;
  const std::string ppd = (folder.path() / "F\xe4rber.ppd").string();
  fs::copy_file(kColorPPD, ppd);
  RunResult result = RunPdeprint({"check", ppd});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(ppd + ": panel offered, color printer, by the printer\n", result.out);
  result = Settings(ppd, {"--ticket", (folder.path() / "j\xf6"
                                                       "b.plist")
                                          .string()});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(fs::exists(folder.path() / "j\xf6"
                                         "b.plist"));
  result = RunPdeprint({"check", kColorPPD}, {.environment = {{"TITLE",
                                                               "j\xf6"
                                                               "b"}}});
  EXPECT_EQ(0, result.status) << result.err;
}
