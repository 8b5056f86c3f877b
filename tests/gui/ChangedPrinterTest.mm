// The printer's PPD file is changed while the dialog is open.

#include <fstream>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;

namespace {

const char kQueue[] = "Altered";

// A queue that is there as long as the object: a color printer that numbers its pages.
class AlteredQueue {
 public:
  AlteredQueue() { Replace(NumberingPPDText(true)); }
  ~AlteredQueue() {
    if (is_there_) Delete();
  }

  void Replace(const std::string &ppd) {
    TestServer().AddQueue({.name = kQueue, .ppd = folder_.Write("new.ppd", ppd)});
    is_there_ = true;
  }
  void Delete() {
    TestServer().Run({"/usr/sbin/lpadmin", "-x", kQueue});
    is_there_ = false;
  }
  // Not through the server, which takes no such file.
  void Damage() const {
    std::ofstream(TestServer().home().parent_path() / "root/ppd" / (std::string(kQueue) + ".ppd"))
        << "rubbish\n";
  }

 private:
  TemporaryFolder folder_;
  bool is_there_ = false;
};

DialogOptions WithChoices() {
  return {.queue = kQueue,
          .settings = {
              {"VQBackgroundNumbering", "On"}, {"VQBNColor", "Blue"}, {"VQStartNumber", "25"}}};
}

id Outlet(DialogOnScreen &screen, NSString *name) {
  return ::Outlet(screen.session().panels().front()->panel(), name);
}

void GoAway(DialogOnScreen &screen) {
  screen.Choose([screen.view() printers], @"Mono");
  screen.AwaitReady();
}

void ComeBack(DialogOnScreen &screen) { screen.Choose([screen.view() printers], @"Altered"); }

std::map<std::string, std::string> Print(DialogOnScreen &screen) {
  PressKeys({"Return"});
  screen.AwaitEnd();
  return TestServer().JobAttributes(screen.dialog().job_number());
}

}  // namespace

OBJC_TEST(ChangedPrinter, AJobGoesWithWhatTheUserSeesWhateverTheQueueHasNow) {
  AlteredQueue queue;
  DialogOnScreen screen(WithChoices());
  screen.AwaitReady();
  queue.Replace(TestPPD::Text(""));
  screen.Choose(Outlet(screen, @"popUpSize"), @"Large");
  screen.ShowPanel(@"Summary");
  auto attributes = Print(screen);
  EXPECT_EQ("On", attributes["VQBackgroundNumbering"]);
  EXPECT_EQ("Blue", attributes["VQBNColor"]);
  EXPECT_EQ("Large", attributes["VQBNSize"]);
  EXPECT_EQ("25", attributes["VQStartNumber"]);
  EXPECT_EQ(1u, TestServer().DocumentsOf(screen.dialog().job_number()).size());
}

OBJC_TEST(ChangedPrinter, AQueueThatHasLostThePanelSaysSoWhenItIsChosenAgain) {
  AlteredQueue queue;
  DialogOnScreen screen(WithChoices());
  screen.AwaitReady();
  GoAway(screen);
  queue.Replace(TestPPD::Text(""));
  ComeBack(screen);
  screen.AwaitReady();
  screen.AwaitText("No extension panel: no attribute VQBackgroundNumberingSupport");
  EXPECT_FALSE([[[screen.view() panels] itemTitles] containsObject:@"Background Numbering"]);
  auto attributes = Print(screen);
  EXPECT_TRUE(attributes.contains("job-name"));
  EXPECT_FALSE(attributes.contains("VQBackgroundNumbering"));
}

OBJC_TEST(ChangedPrinter, AQueueThatHasBecomeAnotherPrinterKeepsWhatFitsAndSaysWhatDoesNot) {
  AlteredQueue queue;
  DialogOptions options = WithChoices();
  options.settings["Duplex"] = "DuplexTumble";
  DialogOnScreen screen(options);
  screen.AwaitReady();
  screen.Choose([screen.view() printers], @"Color");
  screen.AwaitReady();
  queue.Delete();
  queue.Replace(NumberingPPDText(false));
  ComeBack(screen);
  screen.AwaitReady();
  screen.AwaitText("VQBNColor \"Blue\" does not fit");
  EXPECT_EQUAL_OBJECTS(@"Black", [Outlet(screen, @"popUpColor") titleOfSelectedItem]);
  EXPECT_EQ("DuplexTumble", screen.session().Value("Duplex"));
  EXPECT_EQ("25", screen.session().Value("VQStartNumber"));
}

OBJC_TEST(ChangedPrinter, AQueueWhosePPDFileIsDamagedCanBeTriedAgainWithTheSameChoices) {
  AlteredQueue queue;
  DialogOnScreen screen(WithChoices());
  screen.AwaitReady();
  GoAway(screen);
  queue.Damage();
  ComeBack(screen);
  screen.AwaitText("annot read the PPD file of Altered from the print server");
  EXPECT_FALSE([[screen.view() print] isEnabled]);
  queue.Replace(NumberingPPDText(true));
  PressKeys({"Return"});
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"Altered", [[screen.view() printers] titleOfSelectedItem]);
  EXPECT_EQ("On", screen.session().Value("VQBackgroundNumbering"));
  EXPECT_EQ("25", screen.session().Value("VQStartNumber"));
}

OBJC_TEST(ChangedPrinter, AJobForADeletedQueueIsRefusedAndGoesToAnotherOneWithTheSameChoices) {
  AlteredQueue queue;
  DialogOnScreen screen(WithChoices());
  screen.AwaitReady();
  queue.Delete();
  PressKeys({"Return"});
  screen.AwaitText("has no queue \"Altered\"; there is Color, Mono");
  EXPECT_FALSE(screen.dialog().HasEnded());
  screen.Choose([screen.view() printers], @"Color");
  screen.AwaitReady();
  auto attributes = Print(screen);
  EXPECT_EQ("On", attributes["VQBackgroundNumbering"]);
  EXPECT_EQ("Blue", attributes["VQBNColor"]);
  EXPECT_EQ("25", attributes["VQStartNumber"]);
}

OBJC_TEST(ChangedPrinter, ADeletedQueueThatIsChosenAgainIsNamedAndTryingAgainDropsItFromTheMenu) {
  AlteredQueue queue;
  DialogOnScreen screen(WithChoices());
  screen.AwaitReady();
  GoAway(screen);
  queue.Delete();
  ComeBack(screen);
  screen.AwaitText("has no queue \"Altered\"; there is Color, Mono");
  PressKeys({"Return"});
  screen.AwaitText("There is no printer \"Altered\"");
  EXPECT_EQ(-1, [[screen.view() printers] indexOfItemWithTitle:@"Altered"]);
  [screen.dialog().window() makeFirstResponder:[screen.view() printers]];
  PressKeys({"space", "Down", "Return"});
  screen.AwaitReady();
  EXPECT_EQ("On", screen.session().Value("VQBackgroundNumbering"));
}

OBJC_TEST(ChangedPrinter, ADialogOnAPPDFileGoesOnWithWhatItHasReadWhateverBecomesOfTheFile) {
  const TemporaryFolder folder;
  DialogOptions options = WithChoices();
  options.ppd = folder.Write("printer.ppd", NumberingPPDText(true));
  options.has_file = false;
  DialogOnScreen screen(options);
  screen.AwaitReady();
  folder.Write("printer.ppd", TestPPD::Text(""));
  screen.Choose(Outlet(screen, @"popUpSize"), @"Large");
  fs::resize_file(options.ppd, 100);
  screen.ShowPanel(@"Layout");
  screen.Choose(screen.OptionPopUp(@"Two-Sided"), @"Long-Edge Binding");
  fs::remove(options.ppd);
  screen.ShowPanel(@"Background Numbering");
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_EQ("Large", screen.session().Value("VQBNSize"));
  EXPECT_EQ("Blue", screen.session().Value("VQBNColor"));
  EXPECT_EQ("DuplexNoTumble", screen.session().Value("Duplex"));
}
