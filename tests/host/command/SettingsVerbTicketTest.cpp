// `pdeprint settings` on tickets that are there already.

#include <gmock/gmock.h>

#include "tests/host/command/BuiltProgram.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

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
  EXPECT_THAT(result.out, HasSubstr("  Color: Black\n"));
  EXPECT_THAT(ContentOf(ticket), HasSubstr("<string>Black</string>"));
  EXPECT_THAT(ContentOf(ticket), Not(HasSubstr("Red")));
}

TEST(SettingsVerb, RefusesAJobWhoseStoredValueIsNotAllowed) {
  TemporaryFolder folder;
  for (const auto &[key, value, message] : {
           std::tuple("VQBNSize", "Huge",
                      "VQBNSize is \"Huge\": it must be one of Small, Medium, Large; mend it with "
                      "--set Size=VALUE\n"),
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
  EXPECT_THAT(result.out, HasSubstr("VQBNSize=Large\n"));
}

TEST(SettingsVerb, RefusesATicketWhoseKnownValueIsNoString) {
  TemporaryFolder folder;
  for (const char *value : {"<dict/>", "<array/>", "<date>2026-01-01T00:00:00Z</date>"}) {
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

TEST(SettingsVerb, TakesANumberForAText) {
  TemporaryFolder folder;
  const fs::path ticket =
      folder.Write("ticket.plist", Ticket("<key>VQStartNumber</key><integer>5</integer>"));
  const RunResult result = Settings(kColorPPD, {"--ticket", ticket.string()});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, HasSubstr("  VQStartNumber=5\n"));
  EXPECT_THAT(ContentOf(ticket), HasSubstr("<string>5</string>"));
}

TEST(SettingsVerb, RefusesATicketThatCannotBeRead) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write("ticket.plist", "<?xml version=\"1.0\"?><plist><dict>");
  const RunResult result = Settings(kColorPPD, {"--ticket", ticket.string(), "--set", "Valid=On"});
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(result.err, StartsWith("pdeprint: cannot read ticket " + ticket.string() +
                                     ": not a property list: "));
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
    EXPECT_THAT(ContentOf(ticket), HasSubstr("<integer>5</integer>"));
  }
}

TEST(SettingsVerb, FailsWhereTheTicketCannotBeWritten) {
  TemporaryFolder folder;
  for (const std::string &ticket :
       {(folder.path() / "absent/t.plist").string(), std::string("/proc/t.plist")}) {
    const RunResult result = Settings(kColorPPD, {"--ticket", ticket});
    EXPECT_EQ(1, result.status);
    EXPECT_THAT(result.err, StartsWith("pdeprint: cannot write " + ticket + ": "));
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
  EXPECT_THAT(result.err, HasSubstr(bundle.string()));
}

// Printers that draw the number themselves cannot look at the page first.
TEST(SettingsVerb, APlacementThatFiltersAloneHaveIsBehindThePageOnPrintersThatDraw) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write("ticket.plist", Ticket(Entry("VQBNPlacement", "Automatic")));
  const std::string built = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd";
  const std::string note =
      "pdeprint: note: this printer cannot do VQBNPlacement=Automatic; it is now Behind\n";
  const RunResult stored = Settings(built, {"--ticket", ticket.string()});
  EXPECT_EQ(0, stored.status);
  EXPECT_EQ(note, stored.err);
  EXPECT_THAT(stored.out, HasSubstr("VQBNPlacement=Behind\n"));
  const RunResult asked = Settings(built, {"--set", "VQBNPlacement=Automatic"});
  EXPECT_EQ(0, asked.status);
  EXPECT_EQ(note, asked.err);
}
