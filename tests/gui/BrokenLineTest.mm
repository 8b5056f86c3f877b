// The print server goes away while the dialog is open.

#include <functional>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/CuttingRelay.h"
#include "tests/support/ExpectedValue.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/Slowdown.h"

namespace {

// What the dialog asks when it opens: for the queues, for their options (two), for the default,
// for the PPD file. Printing makes the job and sends the document.
constexpr int kForThePrinter = 5;
constexpr int kForTheJob = 2;

CuttingRelay &Relay() {
  static CuttingRelay relay(TestServer().address());
  return relay;
}

id Outlet(DialogOnScreen &screen, NSString *name) {
  return ::Outlet(screen.session().panels().front()->panel(), name);
}

CutPlan GoneAt(int request) {
  return {.cut = Cut::kReset, .at = request, .afterwards = Afterwards::kRefused};
}

DialogOptions ThroughTheRelay() {
  return {.queue = "",
          .server = Relay().address(),
          .limit = std::chrono::milliseconds(5000 * kSlowdown)};
}

void ExpectPrinted(int job) {
  auto attributes = TestServer().JobAttributes(job);
  EXPECT_EQ("3", attributes["copies"]);
  EXPECT_EQ("On", attributes["VQBackgroundNumbering"]);
  EXPECT_EQ("Blue", attributes["VQBNColor"]);
  EXPECT_EQ(1u, TestServer().DocumentsOf(job).size());
}

void TypeCopies(DialogOnScreen &screen) {
  [screen.dialog().window() makeFirstResponder:[screen.view() copies]];
  TypeText("3");
}

}  // namespace

OBJC_TEST(BrokenLine, ADialogWhoseServerGoesWhileItIsAskedGoesOnWhenItIsBack) {
  Relay().Use(GoneAt(0));
  DialogOnScreen screen(ThroughTheRelay());
  screen.AwaitText("rint server " + Relay().address());
  TypeCopies(screen);
  for (int request = 1; request < kForThePrinter; ++request) {
    SCOPED_TRACE(request);
    EXPECT_TRUE(Relay().has_cut());
    EXPECT_FALSE([[screen.view() print] isEnabled]);
    Relay().Use(GoneAt(request));
    PressKeys({"Return"});
    screen.AwaitText("rint server " + Relay().address());
  }
  Relay().Use({});
  PressKeys({"Return"});
  screen.AwaitReady();
  EXPECT_EQ(kForThePrinter, Relay().requests());
  EXPECT_EQUAL_OBJECTS(@"Color", [[screen.view() printers] titleOfSelectedItem]) << "the default";
  EXPECT_EQUAL_OBJECTS(@"3", [[screen.view() copies] stringValue]);
}

OBJC_TEST(BrokenLine, AJobThatIsNotSentCanBeSentWithTheSameChoicesWhenTheServerIsBack) {
  Relay().Use({});
  DialogOnScreen screen(ThroughTheRelay());
  screen.AwaitReady();
  EXPECT_EQ(kForThePrinter, Relay().requests());
  TypeCopies(screen);
  [screen.dialog().window() makeFirstResponder:Outlet(screen, @"functionValid")];
  PressKeys({"space"});
  screen.Choose(Outlet(screen, @"popUpColor"), @"Blue");
  const size_t live = TestServer().LiveJobs().size();
  for (int request = 0; request < kForTheJob; ++request) {
    SCOPED_TRACE(request);
    Relay().Use(GoneAt(request));
    PressKeys({"Return"});
    screen.AwaitText("Not printed: ");
    screen.AwaitText(Relay().address());
    HandleEventsUntil([&] { return [[screen.view() print] isEnabled]; });
    if (request == 0) continue;
    // The server has the job without its document, and the dialog has no way to take it back.
    const std::vector<int> jobs = TestServer().LiveJobs();
    ASSERT_EQ(live + 1, jobs.size());
    screen.AwaitText("job " + std::to_string(jobs.back()) + " is still there");
    EXPECT_EQ(0u, TestServer().DocumentsOf(jobs.back()).size());
    TestServer().Run({"cancel", std::to_string(jobs.back())});
  }
  EXPECT_FALSE(screen.dialog().HasEnded());
  Relay().Use({});
  PressKeys({"Return"});
  screen.AwaitEnd();
  ExpectPrinted(screen.dialog().job_number());
}

OBJC_TEST(BrokenLine, AQueueThatCouldNotBeAskedForIsStillTheChosenOneWhenTheServerIsBack) {
  Relay().Use({});
  DialogOnScreen screen(ThroughTheRelay());
  screen.AwaitReady();
  [screen.dialog().window() makeFirstResponder:Outlet(screen, @"functionValid")];
  PressKeys({"space"});
  Relay().Use(GoneAt(0));
  screen.Choose([screen.view() printers], @"Mono");
  screen.AwaitText(Relay().address());
  EXPECT_FALSE([[screen.view() print] isEnabled]);
  Relay().Use({});
  [screen.dialog().window() makeFirstResponder:[[[screen.view() panelView] subviews] lastObject]];
  PressKeys({"Return"});
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"Mono", [[screen.view() printers] titleOfSelectedItem]);
  EXPECT_EQ("On", screen.session().Value("VQBackgroundNumbering"));
}

OBJC_TEST(BrokenLine, WaitingForTheEndOfAJobOutlastsAServerThatGoesAndComesBack) {
  Relay().Use({});
  DialogOptions options = ThroughTheRelay();
  options.waits = true;
  options.queue = "Stopped";
  DialogOnScreen screen(options);
  screen.AwaitReady();
  PressKeys({"Return"});
  screen.AwaitText("Printing Stopped-");
  Relay().Use(GoneAt(0));
  screen.AwaitText("no print server at " + Relay().address());
  EXPECT_FALSE(screen.dialog().HasEnded());
  Relay().Use({});
  TestServer().StartQueue("Stopped");
  screen.AwaitEnd();
  TestServer().StopQueue("Stopped", "out of paper");
  EXPECT_EQ("completed", TestServer().JobAttributes(screen.dialog().job_number())["job-state"]);
}
