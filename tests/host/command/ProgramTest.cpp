// The built program, without a display.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/support/RunProgram.h"
#include "tests/support/StringsTable.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;

namespace {

using Json = nlohmann::ordered_json;
using Arguments = std::vector<std::string>;

const char kColorPPD[] = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";
const char kMonoPPD[] = SOURCE_DIRECTORY "/tests/support/SampleMono.ppd";

const char kDefaultOptions[] =
    "Job options:\n"
    "  VQBNColor=Black\n"
    "  VQBNDensity=Medium\n"
    "  VQBNSize=Medium\n"
    "  VQBackgroundNumbering=Off\n"
    "  VQStartNumber=1\n";

bool Contains(const std::string &text, const std::string &part) {
  return text.find(part) != std::string::npos;
}

Json Parsed(const std::string &text) {
  Json json = Json::parse(text, nullptr, false);
  EXPECT_FALSE(json.is_discarded()) << text;
  return json;
}

std::string Ticket(const std::string &entries) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + entries +
         "</dict></plist>\n";
}

std::string Entry(const std::string &key, const std::string &value) {
  return "<key>" + key + "</key><string>" + value + "</string>";
}

RunResult Settings(const std::string &ppd, Arguments more = {}, const RunOptions &options = {}) {
  more.insert(more.begin(), {"settings", "--ppd", ppd});
  return RunPdeprint(more, options);
}

std::vector<std::string> NamesIn(const fs::path &folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

// What `check` says of a PPD file with these lines, after the file's name.
std::string CheckOf(const std::string &lines) {
  TestPPD ppd(lines);
  const RunResult result = RunPdeprint({"check", ppd.path().string()});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ("", result.err);
  const std::string start = ppd.path().string() + ": ";
  EXPECT_TRUE(result.out.starts_with(start)) << result.out;
  return result.out.substr(std::min(start.size(), result.out.size()));
}

// The message with which a value is refused; the job stays as it was.
std::string RefusalOf(const std::string &change, const std::string &ppd = kColorPPD) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write("ticket.plist", Ticket(Entry("VQBNSize", "Small")));
  const std::string before = ContentOf(ticket);
  const RunResult result =
      Settings(ppd, {"--ticket", ticket.string(), "--set", "Valid=On", "--set", change});
  EXPECT_EQ(2, result.status) << change << ": " << result.err;
  EXPECT_EQ("", result.out);
  EXPECT_EQ(before, ContentOf(ticket));
  EXPECT_EQ(1u, NamesIn(folder.path()).size());
  return result.err;
}

}  // namespace

TEST(Check, OffersThePanelOnColorAndMonochromePrinters) {
  const RunResult result = RunPdeprint({"check", kColorPPD, kMonoPPD});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ(std::string(kColorPPD) + ": panel offered, color printer\n" + kMonoPPD +
                ": panel offered, monochrome printer\n",
            result.out);
  EXPECT_EQ("", result.err);
}

TEST(Check, OffersThePanelWhereTheFirstAttributeIsExactlyTrue) {
  const std::string offered = "panel offered, color printer\n";
  EXPECT_EQ(offered, CheckOf("*ColorDevice: True\n*VQBackgroundNumberingSupport: true\n"));
  EXPECT_EQ(offered,
            CheckOf("*ColorDevice: True\n*VQBackgroundNumberingSupport Part/Text: \"true\"\n"));
  EXPECT_EQ(offered, CheckOf("*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n"
                             "*VQBackgroundNumberingSupport: \"false\"\n"));
  EXPECT_EQ("panel offered, monochrome printer\n", CheckOf(kSupported));
}

TEST(Check, SaysWhyThePanelIsNotOffered) {
  EXPECT_EQ("no panel: no attribute VQBackgroundNumberingSupport\n", CheckOf(kColorDevice));
  const auto value = [](const std::string &is) {
    return "no panel: VQBackgroundNumberingSupport is \"" + is + "\", must be exactly \"true\"\n";
  };
  EXPECT_EQ(value("True"), CheckOf("*VQBackgroundNumberingSupport: True\n"));
  EXPECT_EQ(value("true "), CheckOf("*VQBackgroundNumberingSupport: \"true \"\n"));
  EXPECT_EQ(value(""), CheckOf("*VQBackgroundNumberingSupport: \"\"\n"));
  EXPECT_EQ(value("false"), CheckOf("*VQBackgroundNumberingSupport: \"false\"\n"
                                    "*VQBackgroundNumberingSupport: \"true\"\n"));
}

TEST(Check, SaysOneLineOfAValueOfSeveralLines) {
  const std::string said = CheckOf("*VQBackgroundNumberingSupport: \"tr\nue\"\n*End\n");
  EXPECT_EQ(1, std::count(said.begin(), said.end(), '\n')) << said;
}

TEST(Check, GoesOnAfterAFileThatCannotBeRead) {
  TemporaryFolder folder;
  const std::string bad = folder.Write("bad.ppd", "*PPD-Adobe: \"4.3\"\nrubbish\n").string();
  const std::string pipe = (folder.path() / "pipe").string();
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  const RunResult result = RunPdeprint({"check", "/absent.ppd", bad, pipe, "/", kColorPPD});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("/absent.ppd: cannot be read: no such file\n" + bad +
                ": cannot be read: Missing asterisk in column 1 on line 2\n" + pipe +
                ": cannot be read: not a regular file\n"
                "/: cannot be read: not a regular file\n" +
                kColorPPD + ": panel offered, color printer\n",
            result.out);
}

TEST(Check, AnswersInJson) {
  TestPPD other("*VQBackgroundNumberingSupport: \"tr\xfc\"\n");
  const RunResult result =
      RunPdeprint({"check", "--json", kColorPPD, kMonoPPD, other.path().string(), "/absent.ppd"});
  EXPECT_EQ(1, result.status);
  const Json json = Parsed(result.out);
  ASSERT_EQ(4u, json.size());
  EXPECT_EQ(Json({{"file", kColorPPD},
                  {"readable", true},
                  {"offered", true},
                  {"color", true},
                  {"panels", {"Background Numbering"}},
                  {"reason", nullptr}}),
            json[0]);
  EXPECT_EQ(false, json[1]["color"]);
  EXPECT_EQ(false, json[2]["offered"]);
  EXPECT_EQ("VQBackgroundNumberingSupport is \"tr\uFFFD\", must be exactly \"true\"",
            json[2]["reason"]);
  EXPECT_EQ(Json({{"file", "/absent.ppd"},
                  {"readable", false},
                  {"offered", false},
                  {"color", nullptr},
                  {"panels", Json::array()},
                  {"reason", "no such file"}}),
            json[3]);
}

TEST(Check, FailsWithoutABundle) {
  const RunResult result = RunPdeprint({"check", "--plugin", "/nowhere/x.plugin", kColorPPD});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: no bundle at /nowhere/x.plugin\n", result.err);
  EXPECT_EQ("", result.out);
}

TEST(SettingsVerb, PrintsTheDefaultsOfANewJob) {
  const RunResult result = Settings(kColorPPD);
  EXPECT_EQ(0, result.status);
  EXPECT_EQ(std::string("Panel: Background Numbering\n"
                        "Summary:\n"
                        "  Print background numbers: Off\n") +
                kDefaultOptions,
            result.out);
  EXPECT_EQ("", result.err);
}

TEST(SettingsVerb, TakesValuesAndWritesTheTicket) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  const std::string report =
      "Panel: Background Numbering\n"
      "Summary:\n"
      "  Size: Large\n"
      "  Density: Light\n"
      "  Color: Blue\n"
      "  Start Number: 7\n"
      "Job options:\n"
      "  VQBNColor=Blue\n"
      "  VQBNDensity=Light\n"
      "  VQBNSize=Large\n"
      "  VQBackgroundNumbering=On\n"
      "  VQStartNumber=7\n"
      "Ticket: " +
      ticket + "\n";
  const RunResult first =
      Settings(kColorPPD, {"--ticket", ticket, "--set", "Valid=On", "--set", "Size=Large", "--set",
                           "Density=Light", "--set", "Color=Blue", "--set", "StartNumber=007"});
  EXPECT_EQ(0, first.status) << first.err;
  EXPECT_EQ(report, first.out);
  EXPECT_EQ("", first.err);
  const RunResult second = Settings(kColorPPD, {"--ticket", ticket});
  EXPECT_EQ(0, second.status) << second.err;
  EXPECT_EQ(report, second.out);
  EXPECT_EQ(std::vector<std::string>{"ticket.plist"}, NamesIn(folder.path()));
}

TEST(SettingsVerb, TheLastOfSeveralValuesWins) {
  const RunResult result =
      Settings(kColorPPD, {"--set", "Color=Red", "--set", "Color=Blue", "--set", "Color=Cyan"});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(Contains(result.out, "VQBNColor=Cyan\n")) << result.out;
}

TEST(SettingsVerb, AnswersInJson) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  const RunResult result = Settings(kColorPPD, {"--json", "--ticket", ticket, "--set", "Valid=On"});
  EXPECT_EQ(0, result.status) << result.err;
  const Json expected = Json::parse(R"({
    "panel": "Background Numbering",
    "summary": [{"title": "Size", "value": "Medium"}, {"title": "Density", "value": "Medium"},
                {"title": "Color", "value": "Black"}, {"title": "Start Number", "value": "1"}],
    "options": {"VQBNColor": "Black", "VQBNDensity": "Medium", "VQBNSize": "Medium",
                "VQBackgroundNumbering": "On", "VQStartNumber": "1"}
  })");
  Json json = Parsed(result.out);
  EXPECT_EQ(Json(ticket), json["ticket"]);
  json.erase("ticket");
  EXPECT_EQ(expected, json);
  EXPECT_TRUE(Parsed(Settings(kColorPPD, {"--json"}).out)["ticket"].is_null());
}

TEST(SettingsVerb, RefusesAnUnknownNameAndNamesTheKnownOnes) {
  EXPECT_EQ(
      "pdeprint: --set Colour=Red: there is no setting \"Colour\"; there are Color, Density, Size, "
      "StartNumber, Valid, the options of the printer and of every job, such as copies\n",
      RefusalOf("Colour=Red"));
  EXPECT_TRUE(Contains(RefusalOf("color=Red"), "there is no setting \"color\""));
  EXPECT_TRUE(Contains(RefusalOf("Größe=Red"), "there is no setting \"Größe\""));
}

TEST(SettingsVerb, RefusesWhatIsNoPair) {
  EXPECT_EQ("pdeprint: --set Color: write NAME=VALUE, for instance StartNumber=25\n",
            RefusalOf("Color"));
  EXPECT_EQ("pdeprint: --set : write NAME=VALUE, for instance StartNumber=25\n", RefusalOf(""));
}

TEST(SettingsVerb, RefusesAValueThatIsNoItemAndNamesTheItems) {
  EXPECT_EQ("pdeprint: Size cannot be \"Huge\": it must be one of Small, Medium, Large\n",
            RefusalOf("Size=Huge"));
  EXPECT_EQ("pdeprint: Density cannot be \"dark\": it must be one of Light, Medium, Dark\n",
            RefusalOf("Density=dark"));
  EXPECT_EQ(
      "pdeprint: Color cannot be \"\": it must be one of Black, Red, Green, Blue, Cyan, Magenta, "
      "Yellow\n",
      RefusalOf("Color="));
  EXPECT_EQ("pdeprint: Valid cannot be \"On=Off\": it must be one of On, Off\n",
            RefusalOf("Valid=On=Off"));
}

TEST(SettingsVerb, RefusesANumberThatIsNoneOrOutOfRange) {
  for (const char *number :
       {"0", "1000", "-1", "+5", "1.5", "", " 5", "5x", "99999999999999999999", "５"}) {
    EXPECT_EQ("pdeprint: StartNumber cannot be \"" + std::string(number) +
                  "\": it must be a whole number from 1 to 999\n",
              RefusalOf("StartNumber=" + std::string(number)));
  }
}

TEST(SettingsVerb, RefusesAValueThatIsNoText) {
  EXPECT_TRUE(Contains(RefusalOf("Color=R\xf6t"), "it must be one of Black, Red"));
}

TEST(SettingsVerb, RefusesAColorOnAMonochromePrinter) {
  EXPECT_EQ("pdeprint: Color cannot be \"Red\" on this printer: it must be Black\n",
            RefusalOf("Color=Red", kMonoPPD));
}

TEST(SettingsVerb, CorrectsAStoredColorOnAMonochromePrinterWithANote) {
  TemporaryFolder folder;
  const std::string ticket =
      folder
          .Write("ticket.plist",
                 Ticket(Entry("VQBackgroundNumbering", "On") + Entry("VQBNColor", "Red")))
          .string();
  const RunResult result = Settings(kMonoPPD, {"--ticket", ticket});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("pdeprint: note: this printer cannot do VQBNColor=Red; it is now Black\n", result.err);
  EXPECT_TRUE(Contains(result.out, "  Color: Black\n")) << result.out;
  EXPECT_TRUE(Contains(ContentOf(ticket), "<string>Black</string>"));
  EXPECT_FALSE(Contains(ContentOf(ticket), "Red"));
}

TEST(SettingsVerb, RefusesAJobWhoseStoredValueIsNotAllowed) {
  TemporaryFolder folder;
  for (const auto &[key, value, message] : {
           std::tuple("VQBNSize", "Huge",
                      "VQBNSize is \"Huge\": it must be one of Small, Medium, Large; mend it with "
                      "--set Size=VALUE\n"),
           std::tuple("VQStartNumber", "025",
                      "VQStartNumber is \"025\": it must be a whole number from 1 to 999; mend it "
                      "with --set StartNumber=VALUE\n"),
           std::tuple("VQStartNumber", "1000",
                      "VQStartNumber is \"1000\": it must be a whole number from 1 to 999; mend it "
                      "with --set StartNumber=VALUE\n"),
       }) {
    const fs::path ticket = folder.Write("ticket.plist", Ticket(Entry(key, value)));
    const std::string before = ContentOf(ticket);
    const RunResult result = Settings(kColorPPD, {"--ticket", ticket.string()});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ(std::string("pdeprint: the job's ") + message, result.err);
    EXPECT_EQ("", result.out);
    EXPECT_EQ(before, ContentOf(ticket));
  }
}

TEST(SettingsVerb, MendsAStoredValueThatIsNotAllowed) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write("ticket.plist", Ticket(Entry("VQBNSize", "Huge")));
  const RunResult result =
      Settings(kColorPPD, {"--ticket", ticket.string(), "--set", "Size=Large"});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(Contains(result.out, "VQBNSize=Large\n")) << result.out;
}

TEST(SettingsVerb, RefusesATicketWhoseKnownValueIsNoString) {
  TemporaryFolder folder;
  for (const char *value : {"<integer>5</integer>", "<dict/>", "<array/>", "<true/>"}) {
    const fs::path ticket =
        folder.Write("ticket.plist", Ticket(std::string("<key>VQStartNumber</key>") + value));
    const std::string before = ContentOf(ticket);
    const RunResult result = Settings(kColorPPD, {"--ticket", ticket.string()});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("pdeprint: cannot use " + ticket.string() +
                  ": the value of VQStartNumber is not a string\n",
              result.err);
    EXPECT_EQ(before, ContentOf(ticket));
  }
}

TEST(SettingsVerb, RefusesATicketThatCannotBeRead) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write("ticket.plist", "<?xml version=\"1.0\"?><plist><dict>");
  const RunResult result = Settings(kColorPPD, {"--ticket", ticket.string(), "--set", "Valid=On"});
  EXPECT_EQ(1, result.status);
  EXPECT_TRUE(result.err.starts_with("pdeprint: cannot read ticket " + ticket.string() +
                                     ": not a property list: "))
      << result.err;
  EXPECT_EQ("<?xml version=\"1.0\"?><plist><dict>", ContentOf(ticket));
}

TEST(SettingsVerb, KeepsOtherVendorsValues) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write(
      "ticket.plist", Ticket(Entry("com.other.größe", "日本 😀") +
                             "<key>com.other.list</key><array><integer>5</integer></array>"
                             "<key>com.other.count</key><integer>12</integer>"));
  for (int run = 0; run < 3; ++run) {
    const RunResult result =
        Settings(kColorPPD, {"--json", "--ticket", ticket.string(), "--set", "Valid=On"});
    EXPECT_EQ(0, result.status) << result.err;
    const Json options = Parsed(result.out)["options"];
    EXPECT_EQ("日本 😀", options["com.other.größe"]);
    EXPECT_EQ("12", options["com.other.count"]);
    EXPECT_FALSE(options.contains("com.other.list"));
    EXPECT_TRUE(Contains(ContentOf(ticket), "<integer>5</integer>"));
  }
}

TEST(SettingsVerb, FailsWhereTheTicketCannotBeWritten) {
  TemporaryFolder folder;
  for (const std::string &ticket :
       {(folder.path() / "absent/t.plist").string(), std::string("/proc/t.plist")}) {
    const RunResult result = Settings(kColorPPD, {"--ticket", ticket});
    EXPECT_EQ(1, result.status);
    EXPECT_TRUE(result.err.starts_with("pdeprint: cannot write " + ticket + ": ")) << result.err;
    EXPECT_EQ("", result.out);
  }
}

TEST(SettingsVerb, FailsWithoutAPrinterThatHasThePanel) {
  TestPPD ppd(kColorDevice);
  RunResult result = Settings(ppd.path().string());
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: no panel for " + ppd.path().string() +
                ": no attribute VQBackgroundNumberingSupport\n",
            result.err);
  result = Settings("/absent.ppd");
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: cannot read /absent.ppd: no such file\n", result.err);
}

TEST(SettingsVerb, NamesTheBundleThatFails) {
  TemporaryFolder folder;
  const fs::path bundle = folder.path() / "Incomplete.plugin";
  fs::copy(BINARY_DIRECTORY "/BackgroundNumbering.plugin", bundle, fs::copy_options::recursive);
  const fs::path info = "Resources/BackgroundNumberingRV2-SettingInfo.plist";
  std::string content = ContentOf(bundle / info);
  const size_t key = content.find("<key>Size</key>\n\t\t<string>VQBNSize</string>");
  ASSERT_NE(std::string::npos, key);
  content.replace(key, content.find("</string>", key) + 9 - key, "");
  folder.Write(bundle / info, content);
  const RunResult result = Settings(kColorPPD, {"--plugin", bundle.string()});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_TRUE(Contains(result.err, bundle.string())) << result.err;
}

TEST(Program, MessagesNeitherControlTheTerminalNorBreakOff) {
  const RunResult result =
      RunPdeprint({"settings", "--ppd", kColorPPD, "--set", "Fo\x1b[2Jo\nbar=Red"});
  EXPECT_EQ(2, result.status);
  EXPECT_EQ(1, std::ranges::count(result.err, '\n')) << result.err;
  EXPECT_TRUE(Contains(result.err, "--set Fo [2Jo bar=Red: ")) << result.err;
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
  EXPECT_TRUE(Contains(result.err, "BackgroundNumbering is left out: ")) << result.err;
  EXPECT_TRUE(Contains(result.err, "there is no setting \"Valid\"")) << result.err;
}

// Results that reach nobody are no success.
TEST(Program, FailsIfItsResultsCannotBeWritten) {
  for (const char *out : {"/dev/full", "-"}) {
    for (const Arguments &arguments :
         {Arguments{"check", kColorPPD}, Arguments{"check", "--json", kColorPPD},
          Arguments{"settings", "--ppd", kColorPPD}}) {
      const RunResult result = RunPdeprint(arguments, {.out = out});
      EXPECT_EQ(1, result.status) << arguments[0] << " to " << out;
      EXPECT_TRUE(result.err.starts_with("pdeprint: ")) << result.err;
    }
  }
}

TEST(Program, WritesTheTicketWholeWithItsOutputClosed) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  const RunResult result = RunPdeprint(
      {"settings", "--ppd", kColorPPD, "--ticket", ticket, "--set", "Size=Large"}, {.out = "-"});
  EXPECT_FALSE(result.timed_out);
  EXPECT_TRUE(ContentOf(ticket).starts_with("<?xml"));
  EXPECT_TRUE(ContentOf(ticket).ends_with("</plist>")) << ContentOf(ticket);
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
           Arguments{"show", "--ppd", kColorPPD, "--json"},
           Arguments{"check", kColorPPD, "--ticket", "x.plist"},
           Arguments{"check", kColorPPD, "--plugin"},
           Arguments{"settings", "--ppd", kColorPPD, "--ticket", ""},
           Arguments{"settings", "--ppd", kColorPPD, "--set", "Valid=On", "Size=Large"},
       }) {
    const RunResult result = RunPdeprint(arguments);
    EXPECT_EQ(2, result.status) << testing::PrintToString(arguments);
    EXPECT_EQ("", result.out);
    EXPECT_TRUE(Contains(result.err, "--help")) << result.err;
  }
}

TEST(Program, HelpsWithEachVerb) {
  const RunResult help = RunPdeprint({"--help"});
  EXPECT_EQ(0, help.status);
  for (const char *part : {"show", "check", "settings", "--version"}) {
    EXPECT_TRUE(Contains(help.out, part)) << part << help.out;
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
    for (const std::string &part : parts) EXPECT_TRUE(Contains(result.out, part)) << verb << part;
  }
}

TEST(Program, TellsItsVersion) {
  const RunResult result = RunPdeprint({"--version"});
  EXPECT_EQ(0, result.status);
  EXPECT_TRUE(result.out.starts_with("pdeprint ")) << result.out;
  EXPECT_TRUE(Contains(result.out, ".")) << result.out;
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
    EXPECT_TRUE(Contains(result.out, "  VQStartNumber=25\n")) << result.out;
    EXPECT_TRUE(Contains(result.out, "Ticket: " + ticket + "\n")) << result.out;
    EXPECT_TRUE(Contains(ContentOf(ticket), "<string>25</string>"));
    fs::remove(ticket);

    const RunResult check = RunPdeprint({"check", ppd.string()}, options);
    EXPECT_EQ(0, check.status) << check.err;
    EXPECT_EQ(ppd.string() + ": panel offered, color printer\n", check.out);
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
  EXPECT_TRUE(Contains(result.out, "panel offered")) << result.out;
}

// File names are bytes, and so are the values of variables.
TEST(Program, TakesArgumentsAndVariablesThatAreNoText) {
  TemporaryFolder folder;
  const std::string ppd = (folder.path() / "F\xe4rber.ppd").string();
  fs::copy_file(kColorPPD, ppd);
  RunResult result = RunPdeprint({"check", ppd});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(ppd + ": panel offered, color printer\n", result.out);
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

TEST(ShowVerb, FailsWithoutADisplayAndLeavesTheTicket) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write("ticket.plist", Ticket(Entry("VQBNSize", "Small")));
  const std::string before = ContentOf(ticket);
  for (const std::optional<std::string> &display :
       {std::optional<std::string>(), std::optional<std::string>(""),
        std::optional<std::string>(":9876"), std::optional<std::string>("nonsense")}) {
    const std::string picture = (folder.path() / "panel.png").string();
    const RunResult result = RunPdeprint(
        {"show", "--ppd", kColorPPD, "--ticket", ticket.string(), "--snapshot", picture},
        {.environment = {{"DISPLAY", display}}});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("", result.out);
    EXPECT_TRUE(Contains(result.err,
                         "pdeprint: there is no display to show a window on; set DISPLAY, or use "
                         "`pdeprint print` or `pdeprint settings`, which need none\n"))
        << result.err;
    EXPECT_EQ(before, ContentOf(ticket));
    EXPECT_FALSE(fs::exists(picture));
  }
}

TEST(ShowVerb, FailsBeforeItNeedsADisplayIfAFileIsWrong) {
  const RunResult result = RunPdeprint({"show", "--ppd", "/absent.ppd"});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: cannot read /absent.ppd: no such file\n", result.err);
}

// The installed program, bundle and library in a place of their own.
class Installed : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new TemporaryFolder;
    const RunResult result = RunProgram(
        {CMAKE_PROGRAM, "--install", BINARY_DIRECTORY, "--prefix", folder_->path().string()});
    ASSERT_EQ(0, result.status) << result.out << result.err;
  }
  static void TearDownTestSuite() {
    delete folder_;
    folder_ = nullptr;
  }

  static fs::path Prefix() { return fs::canonical(folder_->path()); }
  static fs::path Bundle() { return Prefix() / "lib/GNUstep/Bundles/BackgroundNumbering.plugin"; }
  static RunResult Run(Arguments arguments, const std::string &language = "en") {
    arguments.insert(arguments.begin(), (Prefix() / "bin/pdeprint").string());
    return RunProgram(
        arguments,
        {.environment = {{"DISPLAY", {}}, {"LANGUAGE", language}, {"LD_LIBRARY_PATH", {}}},
         .folder = Prefix().string()});
  }

  static TemporaryFolder *folder_;
};

TemporaryFolder *Installed::folder_ = nullptr;

TEST_F(Installed, FindsItsTexts) {
  EXPECT_TRUE(fs::exists(Prefix() / "share/pdeprint/en.lproj/pdeprint.strings"));
  folder_->Write("share/pdeprint/de.lproj/pdeprint.strings",
                 Utf16(u"\"cannot read %1: %2\" = \"%1 nicht lesbar: %2\";\n"
                       u"\"no such file\" = \"Datei fehlt\";\n"));
  EXPECT_EQ("pdeprint: /absent.ppd nicht lesbar: Datei fehlt\n",
            Run({"settings", "--ppd", "/absent.ppd"}, "de").err);
}

TEST_F(Installed, FindsItsBundle) {
  RunResult result = Run({"check", kColorPPD});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(std::string(kColorPPD) + ": panel offered, color printer\n", result.out);
  // The bundle's own, not the build tree's, is what it found.
  fs::rename(Bundle(), Prefix() / "elsewhere");
  result = Run({"check", kColorPPD});
  EXPECT_EQ(1, result.status);
  EXPECT_TRUE(result.err.starts_with(
      "pdeprint: no extension bundle (*.plugin) in any of these folders: " +
      (Prefix() / "bin").string() + ", " + Bundle().parent_path().string() + ", "))
      << result.err;
  EXPECT_TRUE(result.err.ends_with("; name one with --plugin\n")) << result.err;
  result = Run({"check", "--plugin", "elsewhere", kColorPPD});
  EXPECT_EQ(0, result.status) << result.err;
  fs::rename(Prefix() / "elsewhere", Bundle());
}

TEST_F(Installed, ChangesSettings) {
  const RunResult result =
      Run({"settings", "--ppd", kColorPPD, "--ticket", "job.plist", "--set", "Valid=On"});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_TRUE(Contains(result.out, "  Start Number: 1\n")) << result.out;
  EXPECT_TRUE(fs::exists(Prefix() / "job.plist"));
}

TEST_F(Installed, LinksWithTheInstalledLibraryOnly) {
  for (const fs::path &program : {Prefix() / "bin/pdeprint", Bundle() / "BackgroundNumbering"}) {
    const RunResult result =
        RunProgram({"ldd", program.string()}, {.environment = {{"LD_LIBRARY_PATH", {}}}});
    EXPECT_EQ(0, result.status) << result.err;
    const size_t arrow = result.out.find("=> ", result.out.find("libPrintCore.so"));
    ASSERT_NE(std::string::npos, arrow) << result.out;
    const std::string library =
        result.out.substr(arrow + 3, result.out.find(' ', arrow + 3) - arrow - 3);
    EXPECT_EQ(Prefix() / "lib", fs::weakly_canonical(library).parent_path()) << result.out;
    EXPECT_FALSE(Contains(result.out, "not found")) << result.out;
    EXPECT_FALSE(Contains(result.out, BINARY_DIRECTORY)) << result.out;
  }
}
