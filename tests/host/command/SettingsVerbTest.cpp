// `pdeprint settings` and the values that it is given.

#include <gmock/gmock.h>

#include "tests/host/command/BuiltProgram.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

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
  EXPECT_THAT(result.out, HasSubstr("VQBNColor=Cyan\n"));
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
  EXPECT_THAT(RefusalOf("color=Red"), HasSubstr("there is no setting \"color\""));
  EXPECT_THAT(RefusalOf("Größe=Red"), HasSubstr("there is no setting \"Größe\""));
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
  EXPECT_THAT(RefusalOf("Color=R\xf6t"), HasSubstr("it must be one of Black, Red"));
}

TEST(SettingsVerb, RefusesAColorOnAMonochromePrinter) {
  EXPECT_EQ("pdeprint: Color cannot be \"Red\" on this printer: it must be Black\n",
            RefusalOf("Color=Red", kMonoPPD));
}
