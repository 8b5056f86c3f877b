// The dialog on a queue that cannot number, worked with keys.

#include <gmock/gmock.h>

#include <fstream>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/RawPdf.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr char kLine[] = "Background Numbering is applied on this computer";

PrivateServer &Server() {
  static PrivateServer server;
  static bool has_queues = false;
  if (has_queues) return server;
  has_queues = true;
  const TemporaryFolder folder;
  const std::string lines =
      "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n*ColorDevice: True\n";
  server.AddQueue({.name = "Pdf", .ppd = folder.Write("pdf.ppd", TestPPD::Text(lines))});
  server.AddQueue({.name = "Printer", .ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd"});
  return server;
}

void SwitchOnFrom25(DialogOnScreen &screen) {
  screen.AwaitReady();
  const auto outlet = [&screen](NSString *name) {
    return Outlet(screen.session().panels().front()->panel(), name);
  };
  [screen.dialog().window() makeFirstResponder:outlet(@"functionValid")];
  PressKeys({"space"});
  screen.Choose(outlet(@"popUpColor"), @"Blue");
  PressKeys({"Tab"});
  TypeText("25");
}

// The print system's filters with this script in the place of the program that lays out pages.
class FiltersWith {
 public:
  explicit FiltersWith(const std::string &script) {
    const fs::path filters = folder_.path() / "filter";
    fs::create_directory(filters);
    for (const auto &entry : fs::directory_iterator("/usr/lib/cups/filter")) {
      if (entry.path().filename() != "pdftopdf") {
        fs::create_symlink(entry.path(), filters / entry.path().filename());
      }
    }
    std::ofstream(filters / "pdftopdf") << "#!/bin/sh\n" << script << '\n';
    fs::permissions(filters / "pdftopdf", fs::perms::owner_all);
  }

 private:
  TemporaryFolder folder_;
  EnvironmentVariable variable_{"CUPS_SERVERBIN", folder_.path().string()};
};

}  // namespace

OBJC_TEST(ShowHere, PrintsTheNumberThatIsChosenAndTyped) {
  DialogOnScreen screen({.queue = "Pdf", .server = Server().address()});
  SwitchOnFrom25(screen);
  EXPECT_THAT(screen.Texts(), HasSubstr(kLine));
  KeepPicture(screen.view(), "applied-here");
  PressKeys({"Return"});
  screen.AwaitEnd();
  const int job = screen.dialog().job_number();
  ASSERT_NE(job, 0);
  HandleEventsUntil([job] { return Server().JobAttributes(job)["job-state"] == "completed"; });
  EXPECT_THAT(TextOfPdf(Server().OutputOf(job)), HasSubstr("25"));
  EXPECT_THAT(TextOfPdf(Server().OutputOf(job)), HasSubstr("Hello"));
}

OBJC_TEST(ShowHere, SaysNothingWhereThePrinterNumbers) {
  DialogOnScreen screen({.queue = "Printer", .server = Server().address()});
  screen.AwaitReady();
  EXPECT_THAT(screen.Texts(), Not(HasSubstr(kLine)));
  screen.Choose([screen.view() printers], @"Pdf");
  screen.AwaitText(kLine);
  screen.Choose([screen.view() printers], @"Printer");
  HandleEventsUntil([&screen] { return screen.Texts().find(kLine) == std::string::npos; });
}

OBJC_TEST(ShowHere, CancelEndsThePrograms) {
  const FiltersWith slow("exec sleep 600");
  DialogOnScreen screen({.queue = "Pdf", .server = Server().address()});
  SwitchOnFrom25(screen);
  PressKeys({"Return"});
  screen.AwaitText("Preparing the pages…");
  PressKeys({"Escape"});
  screen.AwaitText("Not printed: the job was canceled");
  EXPECT_EQ(screen.dialog().job_number(), 0);
}

OBJC_TEST(ShowHere, SaysWhyThePagesCannotBeMade) {
  const FiltersWith broken("echo 'ERROR: no such luck' >&2; exit 1");
  DialogOnScreen screen({.queue = "Pdf", .server = Server().address()});
  SwitchOnFrom25(screen);
  PressKeys({"Return"});
  screen.AwaitText("the program pdftopdf has failed: no such luck");
  EXPECT_EQ(screen.dialog().job_number(), 0);
}
