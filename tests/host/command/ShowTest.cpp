// The built program's window, worked with real key events.

#include <gmock/gmock.h>

#include <csignal>
#include <map>
#include <regex>

#include "tests/host/command/ShownDialog.h"

namespace fs = std::filesystem;

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::string Ticket(const std::map<std::string, std::string> &values) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>";
  for (const auto &[key, value] : values) {
    text += "<key>" + key + "</key><string>" + value + "</string>";
  }
  return text + "</dict></plist>\n";
}

std::string Report(const std::string &size, const std::string &density, const std::string &color,
                   const std::string &number) {
  return "Panel: Background Numbering\n"
         "Summary:\n"
         "  Size: " +
         size + "\n  Density: " + density + "\n  Color: " + color + "\n  Start Number: " + number +
         "\nJob options:\n"
         "  VQBNColor=" +
         color + "\n  VQBNDensity=" + density + "\n  VQBNSize=" + size +
         "\n  VQBackgroundNumbering=On\n  VQStartNumber=" + number + "\n";
}

unsigned BigEndian(const std::string &bytes, size_t offset) {
  unsigned value = 0;
  for (size_t i = offset; i < offset + 4; ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes.at(i));
  }
  return value;
}

}  // namespace

TEST(Show, ClosingPrintsTheChoicesAndSavesTheTicket) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  Dialog dialog({"--ticket", ticket});
  EXPECT_EQ("Print Settings\n", dialog.Title());
  dialog.Press({"space", "Tab"});
  dialog.OpenMenu();
  dialog.Press({"Down"});
  dialog.EndMenu("Return");
  dialog.Press({"Tab"});
  dialog.OpenMenu();
  dialog.Press({"Up"});
  dialog.EndMenu("Return");
  dialog.Press({"Tab"});
  dialog.OpenMenu();
  dialog.Press({"Down", "Down", "Down"});
  dialog.EndMenu("Return");
  dialog.Press({"Tab"});
  dialog.Type("25");
  const RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(Report("Large", "Light", "Blue", "25") + "Ticket: " + ticket + "\n", result.out);
  EXPECT_THAT(ContentOf(ticket), HasSubstr("<string>25</string>"));
}

TEST(Show, ASecondRunShowsWhatTheFirstSaved) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  const auto picture = [&folder](const char *name) { return (folder.path() / name).string(); };
  {
    Dialog dialog({"--ticket", ticket, "--snapshot", picture("1.png")});
    dialog.Press({"space", "Tab", "Tab", "Tab", "Tab"});
    dialog.Type("42");
    EXPECT_EQ(0, dialog.Close().status);
  }
  for (const char *name : {"2.png", "3.png"}) {
    Dialog dialog({"--ticket", ticket, "--snapshot", picture(name)});
    const RunResult result = dialog.Close();
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_THAT(result.out, StartsWith(Report("Medium", "Medium", "Black", "42")));
  }
  EXPECT_EQ(ContentOf(picture("2.png")), ContentOf(picture("3.png")));
  Dialog fresh({"--snapshot", picture("fresh.png")});
  EXPECT_EQ(0, fresh.Close().status);
  EXPECT_NE(ContentOf(picture("2.png")), ContentOf(picture("fresh.png")));
}

TEST(Show, AStoredValueThatNoControlCanShowGivesWayToTheDefault) {
  TemporaryFolder folder;
  const std::string ticket = folder
                                 .Write("ticket.plist", Ticket({{"VQBackgroundNumbering", "On"},
                                                                {"VQBNSize", "Huge"},
                                                                {"VQStartNumber", "0"}}))
                                 .string();
  Dialog dialog({"--ticket", ticket});
  const RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, StartsWith(Report("Medium", "Medium", "Black", "1")));
  for (const char *named : {"VQBNSize \"Huge\"", "VQStartNumber \"0\""}) {
    EXPECT_THAT(result.err, HasSubstr(named));
  }
}

TEST(Show, TheSnapshotIsAPictureOfTheDialogAroundThePanel) {
  const std::string layout = ContentOf(SOURCE_DIRECTORY "/resources/BackgroundNumbering.xib");
  std::smatch size;
  ASSERT_TRUE(std::regex_search(
      layout, size, std::regex("<rect key=\"frame\"[^>]* width=\"(\\d+)\" height=\"(\\d+)\"")));
  TemporaryFolder folder;
  const fs::path picture = folder.Write("panel.png", "an older picture");
  Dialog dialog({"--snapshot", picture.string()});
  const RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, EndsWith("Picture: " + picture.string() + "\n"));
  const std::string content = ContentOf(picture);
  ASSERT_THAT(content, StartsWith("\x89PNG\r\n\x1a\n"));
  EXPECT_LT(std::stoul(size[1]), BigEndian(content, 16));
  EXPECT_LT(std::stoul(size[2]), BigEndian(content, 20));
}

TEST(Show, EscapeWithAnOpenMenuClosesOnlyTheMenu) {
  Dialog dialog({});
  dialog.Press({"space", "Tab"});
  dialog.OpenMenu();
  dialog.Press({"Down"});
  dialog.EndMenu("Escape");
  // The window is still there to be worked.
  dialog.Press({"Tab"});
  dialog.OpenMenu();
  dialog.Press({"Down"});
  dialog.EndMenu("Return");
  const RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(Report("Medium", "Dark", "Black", "1"), result.out);
}

TEST(Show, EscapeAndTheWindowsCloseButtonCancelAndChangeNothing) {
  for (const char *key : {"Escape", "alt+F4"}) {
    TemporaryFolder folder;
    const std::string ticket = (folder.path() / "ticket.plist").string();
    const std::string picture = (folder.path() / "dialog.png").string();
    Dialog dialog({"--ticket", ticket, "--snapshot", picture});
    dialog.Press({"space"});
    const RunResult result = dialog.Close(key);
    EXPECT_EQ(1, result.status) << key;
    EXPECT_EQ("", result.out);
    EXPECT_THAT(result.err, EndsWith("pdeprint: canceled; nothing was printed or saved\n"));
    EXPECT_TRUE(fs::is_empty(folder.path())) << key;
  }
}

// Whoever starts the program from a file manager does not see standard error.
TEST(Show, WithAlertSaysInAWindowTooWhyItCannotOpen) {
  Dialog dialog({"--alert", "--ticket", "/nowhere/ticket.plist"}, "/nowhere/printer.ppd");
  EXPECT_EQ("Print\n", dialog.Title());
  const RunResult result = dialog.Close();
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(result.err, EndsWith("pdeprint: cannot read /nowhere/printer.ppd: no such file\n"));
}

TEST(Show, TabWalksAllControlsInACircle) {
  Dialog dialog({});
  dialog.Press({"space", "Tab", "Tab", "Tab", "Tab"});
  dialog.Type("5");
  // Restore Defaults, help, Cancel, Done, presets, copies, pages, panels, the check box, size.
  dialog.Press(Arguments(10, "Tab"));
  dialog.OpenMenu();
  dialog.Press({"Up"});
  dialog.EndMenu("Return");
  const RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(Report("Small", "Medium", "Black", "5"), result.out);
}

TEST(Show, EditsTheNumberWithTheUsualKeys) {
  Dialog dialog({});
  dialog.Press({"space", "Tab", "Tab", "Tab", "Tab"});
  dialog.Type("12");
  dialog.Press({"ctrl+a", "ctrl+c"});
  dialog.Press({"End", "ctrl+v"});
  RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, HasSubstr("VQStartNumber=999\n"));
}

TEST(Show, AMonochromePrinterHasBlackAlone) {
  TemporaryFolder folder;
  const std::string ticket =
      folder.Write("ticket.plist", Ticket({{"VQBackgroundNumbering", "On"}, {"VQBNColor", "Red"}}))
          .string();
  Dialog dialog({"--ticket", ticket}, kMonoPPD);
  const RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, StartsWith(Report("Medium", "Medium", "Black", "1")));
}

TEST(Show, AnEndFromOutsideLeavesTheTicket) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    TemporaryFolder folder;
    const std::string before = Ticket({{"VQBNSize", "Small"}});
    const fs::path ticket = folder.Write("ticket.plist", before);
    const std::string picture = (folder.path() / "panel.png").string();
    Dialog dialog({"--ticket", ticket.string(), "--snapshot", picture});
    dialog.Press({"space"});
    dialog.program().Signal(signal);
    const RunResult result = dialog.program().Wait(kPatience);
    EXPECT_FALSE(result.timed_out);
    EXPECT_EQ(128 + signal, result.status);
    EXPECT_EQ("", result.out);
    EXPECT_EQ(before, ContentOf(ticket));
    EXPECT_FALSE(fs::exists(picture));
  }
}

// What was chosen is not lost with the picture.
TEST(Show, SavesTheTicketEvenIfThePictureCannotBeWritten) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  const std::string picture = (folder.path() / "absent/panel.png").string();
  Dialog dialog({"--ticket", ticket, "--snapshot", picture});
  dialog.Press({"space"});
  const RunResult result = dialog.Close();
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(result.err, HasSubstr("pdeprint: cannot write " + picture + ": "));
  EXPECT_THAT(result.out, StartsWith(Report("Medium", "Medium", "Black", "1")));
  EXPECT_THAT(ContentOf(ticket), HasSubstr("<string>On</string>"));
}

TEST(Show, PrintsTheChoicesEvenIfTheTicketCannotBeWritten) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "absent/ticket.plist").string();
  Dialog dialog({"--ticket", ticket});
  dialog.Press({"space"});
  const RunResult result = dialog.Close();
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(result.err, HasSubstr("pdeprint: cannot write " + ticket + ": "));
  EXPECT_EQ(Report("Medium", "Medium", "Black", "1"), result.out);
}

TEST(Show, FailsIfTheChoicesCannotBePrintedButSavesThem) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "ticket.plist").string();
  Dialog dialog({"--ticket", ticket}, kColorPPD, "/dev/full");
  dialog.Press({"space"});
  const RunResult result = dialog.Close();
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(ContentOf(ticket), HasSubstr("<string>On</string>"));
}
