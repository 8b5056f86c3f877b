// From key events in the dialog to the number on the page.

#include "host/presets/Ticket.h"
#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/Interpreter.h"
#import "tests/support/ObjCTest.h"

namespace {

// A server of its own, whose queue Color numbers pages by itself.
PrivateServer &NumberingServer() {
  static PrivateServer server;
  static bool has_queue = false;
  if (has_queue) return server;
  has_queue = true;
  server.AddQueue({.name = "Color", .ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd"});
  return server;
}

id Panel(DialogOnScreen &screen, NSString *outlet) {
  return Outlet(screen.session().panels().front()->panel(), outlet);
}

// Switches numbering on, chooses a large, dark, blue number and types that of the first page.
void ChooseLargeDarkBlueFrom25(DialogOnScreen &screen) {
  screen.AwaitReady();
  [screen.dialog().window() makeFirstResponder:Panel(screen, @"functionValid")];
  PressKeys({"space"});
  screen.Choose(Panel(screen, @"popUpSize"), @"Large");
  screen.Choose(Panel(screen, @"popUpDensity"), @"Dark");
  screen.Choose(Panel(screen, @"popUpColor"), @"Blue");
  PressKeys({"Tab"});
  TypeText("25");
}

void AwaitEndOfJob(int job) {
  HandleEventsUntil(
      [job] { return NumberingServer().JobAttributes(job)["job-state"] == "completed"; });
}

// One page with a large, dark blue 25 in the middle and the document's words on it.
void ExpectLargeDarkBlue25(int job) {
  AwaitEndOfJob(job);
  const std::vector<PrintedPage> pages = PagesOf(NumberingServer().OutputOf(job));
  ASSERT_EQ("25", NumbersOf(pages));
  const PrintedPage &page = pages.front();
  EXPECT_EQ("Helvetica-Bold", page.Number().font);
  EXPECT_TRUE(page.Says("Hello"));
  const std::optional<Color> color = page.picture().MainColor();
  ASSERT_TRUE(color);
  EXPECT_EQ(255, color->blue);
  EXPECT_EQ(color->red, color->green);
  EXPECT_LT(color->red, 160);
  const std::optional<Box> box =
      page.picture().BoundsOf([&color](Color pixel) { return pixel == *color; });
  ASSERT_TRUE(box);
  EXPECT_NEAR(0.5, box->center_x(), 0.01);
  EXPECT_NEAR(0.5, box->center_y(), 0.01);
  EXPECT_GE(box->width(), 0.7);
}

}  // namespace

OBJC_TEST(PrintedPages, TheJobOfTheDialogCarriesTheNumberThatWasChosenAndTyped) {
  DialogOnScreen screen({.server = NumberingServer().address()});
  ChooseLargeDarkBlueFrom25(screen);
  PressKeys({"Return"});
  screen.AwaitEnd();
  ASSERT_EQ("", screen.dialog().failure());
  ExpectLargeDarkBlue25(screen.dialog().job_number());
}

OBJC_TEST(PrintedPages, TheJobOfADialogInWhichNothingWasTouchedCarriesNone) {
  DialogOnScreen screen({.server = NumberingServer().address()});
  screen.AwaitReady();
  PressKeys({"Return"});
  screen.AwaitEnd();
  const int job = screen.dialog().job_number();
  AwaitEndOfJob(job);
  const std::vector<PrintedPage> pages = PagesOf(NumberingServer().OutputOf(job));
  EXPECT_EQ("-", NumbersOf(pages));
  EXPECT_FALSE(pages.front().picture().MainColor());
}

OBJC_TEST(PrintedPages, TheTicketOfTheDialogPrintsTheNumberWithoutTheDialog) {
  TemporaryFolder folder;
  const std::string ticket = folder.path() / "ticket.plist";
  {
    DialogOnScreen screen({.server = NumberingServer().address(), .has_file = false});
    ChooseLargeDarkBlueFrom25(screen);
    PressKeys({"Return"});
    screen.AwaitEnd();
    ASSERT_TRUE(WriteTicket(ticket, screen.session().settings()));
  }
  const std::string page = folder.Write(
      "page.ps", "%!PS\n/Helvetica findfont 24 scalefont setfont 72 700 moveto (Hello) show "
                 "showpage\n");
  RunOptions options;
  options.environment = NumberingServer().Environment();
  const RunResult result = RunPdeprint({"print", "-d", "Color", "--ticket", ticket, page}, options);
  ASSERT_EQ(0, result.status) << result.err;
  ExpectLargeDarkBlue25(std::stoi(result.out.substr(result.out.find('-') + 1)));
}
