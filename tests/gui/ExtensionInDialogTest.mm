#include "host/dialog/PanelChooser.h"

#include <gmock/gmock.h>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TwoPanelsRun.h"

using testing::HasSubstr;

namespace {

using Calls = std::vector<std::string>;

DialogOptions WithTwoPanels() { return {.bundle = TWO_PANELS}; }

// The calls but those that ask the panels what they are, whose order is the dialog's own business.
Calls Doings(const TwoPanelsRun &run) {
  Calls doings = run.Calls();
  std::erase_if(doings, [](const std::string &call) {
    for (const char *question : {"panelName", "panelKind", "optionKeys", "panelView", "summary"}) {
      if (call.ends_with(question)) return true;
    }
    return false;
  });
  return doings;
}

}  // namespace

OBJC_TEST(ExtensionInDialog, APanelIsRestoredBeforeItIsShownAndSavedBeforeAnotherTakesItsPlace) {
  TwoPanelsRun run;
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  Calls opened = Doings(run);
  ASSERT_GE(opened.size(), 2u);
  EXPECT_EQ((Calls{"First restore", "First willShow"}), Calls(opened.end() - 2, opened.end()));
  screen.ShowPanel(@"Second");
  EXPECT_EQ((Calls{"First shouldHide", "First save", "Second restore", "Second willShow"}),
            Doings(run));
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_EQ((Calls{"Second save", "First shouldPrint", "Second shouldPrint",
                   "First windowWillClose accepted", "Second windowWillClose accepted"}),
            Doings(run));
}

OBJC_TEST(ExtensionInDialog, OptionsThatAPanelDeclaresAreNotShownAgain) {
  TwoPanelsRun run;
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  screen.ShowPanel(@"Layout");
  EXPECT_EQ(nil, screen.OptionPopUp(@"Two-Sided"));
  screen.ShowPanel(@"Paper");
  EXPECT_NE(nil, screen.OptionPopUp(@"Paper Type"));
}

OBJC_TEST(ExtensionInDialog, APanelThatRefusesToHideStays) {
  TwoPanelsRun run("First.shouldHide=no");
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  NSView *view = [screen.view() panelView];
  screen.ShowPanel(@"Second");
  EXPECT_EQ(view, [screen.view() panelView]);
  EXPECT_EQUAL_OBJECTS(@"First", [[screen.view() panels] titleOfSelectedItem]);
  screen.Choose([screen.view() printers], @"Mono");
  EXPECT_EQUAL_OBJECTS(@"Color", [[screen.view() printers] titleOfSelectedItem]);
  screen.AwaitText("First cannot be left as it is");
}

OBJC_TEST(ExtensionInDialog, APanelThatDoesNotAllowPrintingHoldsTheJob) {
  TwoPanelsRun run("Second.shouldPrint=no");
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  PressKeys({"Return"});
  screen.AwaitText("Second does not allow this job to be printed");
  EXPECT_FALSE(screen.dialog().HasEnded());
  run.SetFaults("");
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_GT(screen.dialog().job_number(), 0);
}

OBJC_TEST(ExtensionInDialog, APanelThatDoesNotSaveHoldsTheJob) {
  TwoPanelsRun run("First.save=no");
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  PressKeys({"Return"});
  HandleEventsUntilSettled();
  EXPECT_FALSE(screen.dialog().HasEnded());
  screen.AwaitText("First");
}

OBJC_TEST(ExtensionInDialog, APanelThatRaisesIsLeftOutWithItsReasonAndTheDialogGoesOn) {
  for (const char *fault : {"First.panelView=raise", "First.panelView=nil", "First.willShow=raise",
                            "First.restore=raise", "First.panelName=number"}) {
    TwoPanelsRun run(fault);
    testing::internal::CaptureStderr();
    DialogOnScreen screen(WithTwoPanels());
    screen.AwaitReady();
    EXPECT_EQ(-1, [[screen.view() panels] indexOfItemWithTitle:@"First"]) << fault;
    EXPECT_EQUAL_OBJECTS(@"Second", [[screen.view() panels] titleOfSelectedItem]) << fault;
    screen.AwaitText("is left out: ");
    const std::string complaint = testing::internal::GetCapturedStderr();
    EXPECT_THAT(complaint, HasSubstr("Two Panels is left out: "));
    if (std::string(fault) == "First.willShow=raise") KeepPicture(screen.view(), "left-out");
  }
}

OBJC_TEST(ExtensionInDialog, APanelThatRaisesWhileItSavesIsLeftOutAndTheJobWaitsForAnotherPrint) {
  TwoPanelsRun run("First.save=raise");
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  PressKeys({"Return"});
  screen.AwaitText("What was chosen on First is lost; the job goes on without it.");
  EXPECT_FALSE(screen.dialog().HasEnded());
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_GT(screen.dialog().job_number(), 0);
  EXPECT_EQ(-1, [[screen.view() panels] indexOfItemWithTitle:@"First"]);
}

OBJC_TEST(ExtensionInDialog, ABundleThatAnswersNonsenseIsLeftOutAndTheQueueStillPrints) {
  TwoPanelsRun run("panels=string");
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  screen.AwaitText("Two Panels is left out: ");
  EXPECT_EQUAL_OBJECTS(
      (@[ @"Layout", @"Paper", @"Pages", @"Job", @"Printer Options", @"Documents", @"Summary" ]),
      [[screen.view() panels] itemTitles]);
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_GT(screen.dialog().job_number(), 0);
}

OBJC_TEST(ExtensionInDialog, APanelMayShowHelpOfItsOwn) {
  TwoPanelsRun run("First.help=own");
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  [screen.dialog().window() makeFirstResponder:[screen.view() help]];
  run.Calls();
  PressKeys({"space"});
  EXPECT_EQ((Calls{"First help"}), Doings(run));
  EXPECT_EQ(nil, [NSApp modalWindow]);
  run.SetFaults("");
  const AnswerToQuestion answer({"Return"});
  PressKeys({"space"});
  HandleEventsUntil([] { return [NSApp modalWindow] == nil; });
  EXPECT_EQ((Calls{"First help"}), Doings(run));
}

OBJC_TEST(ExtensionInDialog, PanelsAreToldOfChoicesMadeElsewhere) {
  TwoPanelsRun run;
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  screen.ShowPanel(@"Paper");
  run.Calls();
  screen.Choose(screen.OptionPopUp(@"Paper Type"), @"Transparency");
  EXPECT_EQ((Calls{"First optionDidChange MediaType=Transparency",
                   "Second optionDidChange MediaType=Transparency"}),
            Doings(run));
}

OBJC_TEST(ExtensionInDialog, CancelTellsThePanels) {
  TwoPanelsRun run;
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  run.Calls();
  PressKeys({"Escape"});
  screen.AwaitEnd();
  EXPECT_EQ((Calls{"First windowWillClose canceled", "Second windowWillClose canceled"}),
            Doings(run));
}

OBJC_TEST(ExtensionInDialog, PanelsAreAskedAfreshForEachQueueAndThePrincipalObjectOnce) {
  TwoPanelsRun run;
  DialogOnScreen screen(WithTwoPanels());
  screen.AwaitReady();
  run.Calls();
  screen.Choose([screen.view() printers], @"Mono");
  screen.AwaitReady();
  const Calls calls = run.Calls();
  EXPECT_EQ(3, std::count(calls.begin(), calls.end(), "panels")) << "one a panel type";
  EXPECT_EQ(0, std::count(calls.begin(), calls.end(), "init"));
  EXPECT_EQ(1, std::count(calls.begin(), calls.end(), "First dealloc"));
}
