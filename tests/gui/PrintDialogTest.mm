#include "host/dialog/PrintDialog.h"

#include <gmock/gmock.h>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/ExpectedValue.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/SilentServer.h"

using testing::HasSubstr;

namespace {

id Outlet(DialogOnScreen &screen, NSString *name) {
  return ::Outlet(screen.session().panels().front()->panel(), name);
}

}  // namespace

OBJC_TEST(PrintDialog, ShowsTheDefaultQueueAndWhatPeopleKnowItBy) {
  DialogOnScreen screen({.queue = ""});
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"Color", [[screen.view() printers] titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS((@[ @"Color", @"Mono", @"Raw", @"Rejecting", @"Stopped", @"Save as PDF…" ]),
                       [[screen.view() printers] itemTitles]);
  EXPECT_EQUAL_OBJECTS(@"Color printer — 2nd floor, by the lift",
                       [[screen.view() printerInfo] stringValue]);
  EXPECT_EQUAL_OBJECTS(
      (@[
        @"Background Numbering", @"Layout", @"Paper", @"Pages", @"Job", @"Documents", @"Summary"
      ]),
      [[screen.view() panels] itemTitles]);
  KeepPicture(screen.view(), "dialog");
}

OBJC_TEST(PrintDialog, FindsAQueueWhateverTheCaseOfItsName) {
  DialogOnScreen screen({.queue = "mono"});
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"Mono", [[screen.view() printers] titleOfSelectedItem]);
}

OBJC_TEST(PrintDialog, AQueueThatIsNotThereIsNamedAndAnotherCanBeChosen) {
  DialogOnScreen screen({.queue = "Absent"});
  screen.AwaitText("There is no printer \"Absent\"");
  EXPECT_FALSE([[screen.view() print] isEnabled]);
  [screen.dialog().window() makeFirstResponder:[screen.view() printers]];
  PressKeys({"space", "Down", "Return"});
  screen.AwaitReady();
}

OBJC_TEST(PrintDialog, ReturnPrintsTheFileWithWhatWasChosen) {
  DialogOnScreen screen;
  screen.AwaitReady();
  PressKeys({"Tab", "Tab"});
  TypeText("2");
  PressKeys({"Tab"});
  TypeText("1-3, 7");
  PressKeys({"Tab", "Tab", "space"});
  screen.Choose(Outlet(screen, @"popUpColor"), @"Blue");
  screen.Choose(Outlet(screen, @"popUpSize"), @"Large");
  PressKeys({"Return"});
  screen.AwaitEnd();
  auto attributes = TestServer().JobAttributes(screen.dialog().job_number());
  EXPECT_EQ("page.ps", attributes["job-name"]);
  EXPECT_EQ("2", attributes["copies"]);
  EXPECT_EQ("1-3,7-7", attributes["page-ranges"]);
  EXPECT_EQ("On", attributes["VQBackgroundNumbering"]);
  EXPECT_EQ("Large", attributes["VQBNSize"]);
  EXPECT_EQ("Blue", attributes["VQBNColor"]);
  EXPECT_EQ("1", attributes["VQStartNumber"]);
  EXPECT_EQ(1u, TestServer().DocumentsOf(screen.dialog().job_number()).size());
}

OBJC_TEST(PrintDialog, TheQueuesOwnDefaultsAreShownAndBeatenByWhatIsChosen) {
  TestServer().Run({"lpoptions", "-p", "Color", "-o", "VQBNSize=Small", "-o", "VQBNColor=Red"});
  DialogOnScreen screen({.settings = {{"VQBackgroundNumbering", "On"}}});
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"Small", [Outlet(screen, @"popUpSize") titleOfSelectedItem]);
  screen.Choose(Outlet(screen, @"popUpSize"), @"Large");
  PressKeys({"Return"});
  screen.AwaitEnd();
  TestServer().Run({"lpoptions", "-x", "Color"});
  auto attributes = TestServer().JobAttributes(screen.dialog().job_number());
  EXPECT_EQ("Large", attributes["VQBNSize"]);
  EXPECT_EQ("Red", attributes["VQBNColor"]);
}

OBJC_TEST(PrintDialog, AllPagesArePrintedIfTheQueuesFewerAreTakenAway) {
  TestServer().Run({"lpoptions", "-p", "Color", "-o", "page-ranges=1-2"});
  DialogOnScreen screen;
  screen.AwaitReady();
  TestServer().Run({"lpoptions", "-x", "Color"});
  EXPECT_EQUAL_OBJECTS(@"1-2", [[screen.view() pages] stringValue]);
  PressKeys({"Tab", "Tab", "Tab", "ctrl+a", "BackSpace", "Return"});
  screen.AwaitEnd();
  EXPECT_EQ("1-2147483647",
            TestServer().JobAttributes(screen.dialog().job_number())["page-ranges"]);
}

OBJC_TEST(PrintDialog, ShowsTheChoicesThatAQueuesDefaultsComeToUnderOtherNames) {
  TestServer().Run(
      {"lpoptions", "-p", "Color", "-o", "sides=two-sided-long-edge", "-o", "media=A3"});
  DialogOnScreen screen;
  screen.AwaitReady();
  TestServer().Run({"lpoptions", "-x", "Color"});
  screen.ShowPanel(@"Layout");
  EXPECT_EQUAL_OBJECTS(@"Long-Edge Binding",
                       [screen.OptionPopUp(@"Two-Sided") titleOfSelectedItem]);
  screen.ShowPanel(@"Paper");
  EXPECT_EQUAL_OBJECTS(@"A3", [screen.OptionPopUp(@"Media Size") titleOfSelectedItem]);
}

OBJC_TEST(PrintDialog, AQueueWithoutPanelsDoesNotChangeWhichPanelIsShownOnOthers) {
  DialogOnScreen screen;
  screen.AwaitReady();
  screen.Choose([screen.view() printers], @"Raw");
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS((@[ @"Job", @"Documents", @"Summary" ]), [[screen.view() panels] itemTitles])
      << "nobody knows how it lays out pages";
  screen.Choose([screen.view() printers], @"Color");
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"Background Numbering", [[screen.view() panels] titleOfSelectedItem]);
}

OBJC_TEST(PrintDialog, AQueueWithoutPrinterDescriptionPrintsAndSaysWhyThereIsNoPanel) {
  DialogOnScreen screen({.queue = "Raw"});
  screen.AwaitReady();
  screen.AwaitText("No extension panel: the queue has no PPD file");
  EXPECT_EQUAL_OBJECTS((@[ @"Job", @"Documents", @"Summary" ]),
                       [[screen.view() panels] itemTitles]);
  KeepPicture(screen.view(), "without-ppd");
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_FALSE(TestServer().JobAttributes(screen.dialog().job_number()).empty());
}

OBJC_TEST(PrintDialog, ARefusalOfTheServerStaysAndPrintCanBePressedAgain) {
  DialogOnScreen screen({.queue = "Rejecting"});
  screen.AwaitReady();
  PressKeys({"Return"});
  screen.AwaitText("is not accepting jobs");
  KeepPicture(screen.view(), "refused");
  EXPECT_FALSE(screen.dialog().HasEnded());
  TestServer().Run({"cupsaccept", "Rejecting"});
  PressKeys({"Return"});
  screen.AwaitEnd();
  TestServer().Run({"cupsreject", "Rejecting"});
  EXPECT_FALSE(TestServer().JobAttributes(screen.dialog().job_number()).empty());
}

OBJC_TEST(PrintDialog, WaitsForTheJobWhereThatIsWanted) {
  DialogOnScreen screen({.waits = true});
  screen.AwaitReady();
  PressKeys({"Return"});
  screen.AwaitEnd();
  const int job = screen.dialog().job_number();
  EXPECT_EQ("completed", TestServer().JobAttributes(job)["job-state"]);
  EXPECT_FALSE(TestServer().OutputOf(job).empty());
}

OBJC_TEST(PrintDialog, WaitingForAStoppedPrinterCanBeEnded) {
  DialogOnScreen screen({.queue = "Stopped", .waits = true});
  screen.AwaitReady();
  PressKeys({"Return"});
  screen.AwaitText("Printing Stopped-");
  KeepPicture(screen.view(), "waiting-for-end");
  EXPECT_EQUAL_OBJECTS(@"Close", [[screen.view() cancel] title]);
  PressKeys({"Escape"});
  screen.AwaitEnd();
  const std::string id = "Stopped-" + std::to_string(screen.dialog().job_number());
  EXPECT_EQ(id + " has not been printed yet", screen.dialog().failure());
  TestServer().Run({"cancel", id});
}

OBJC_TEST(PrintDialog, EscapeSendsNothing) {
  const size_t live = TestServer().LiveJobs().size();
  DialogOnScreen screen({.queue = "Stopped"});
  screen.AwaitReady();
  PressKeys({"Escape"});
  screen.AwaitEnd();
  EXPECT_EQ(0, screen.dialog().job_number());
  EXPECT_EQ(live, TestServer().LiveJobs().size());
}

OBJC_TEST(PrintDialog, AServerThatIsNotThereIsNamed) {
  LocalPort nobody;
  DialogOnScreen screen({.server = nobody.address()});
  screen.AwaitText("No print server at " + nobody.address());
  EXPECT_FALSE([[screen.view() print] isEnabled]);
}

OBJC_TEST(PrintDialog, ASilentServerNeverFreezesTheWindow) {
  SilentServer silent;
  DialogOnScreen screen({.server = silent.address(), .limit = std::chrono::milliseconds(1500)});
  screen.AwaitText("Asking " + silent.address());
  KeepPicture(screen.view(), "asking");
  EXPECT_FALSE([[screen.view() print] isEnabled]);
  PressKeys({"Tab", "Tab"});
  TypeText("7");
  EXPECT_EQUAL_OBJECTS(@"7", [[screen.view() copies] stringValue]);
  screen.AwaitText("does not answer within");
  KeepPicture(screen.view(), "no-answer");
  PressKeys({"Escape"});
  screen.AwaitEnd();
}

OBJC_TEST(PrintDialog, AServerThatAnswersAgainCanBeTriedAgain) {
  TestServer().Freeze();
  DialogOnScreen screen(
      {.last_used = {{"VQStartNumber", "25"}}, .limit = std::chrono::milliseconds(1000)});
  screen.AwaitText("does not answer within");
  [screen.dialog().window() makeFirstResponder:[screen.view() copies]];
  TypeText("7");
  screen.Choose([screen.view() presets], @"Last Used");
  TestServer().GoOn();
  PressKeys({"Return"});
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"7", [[screen.view() copies] stringValue]) << "typed meanwhile";
  EXPECT_EQ("25", screen.session().Value("VQStartNumber")) << "chosen meanwhile";
  EXPECT_EQ([screen.view() printers], [screen.dialog().window() firstResponder]);
  EXPECT_EQUAL_OBJECTS(@"Color", [[screen.view() printers] titleOfSelectedItem]);
}

OBJC_TEST(PrintDialog, AnotherQueueKeepsWhatFitsAndSaysWhatDoesNot) {
  DialogOnScreen screen({.settings = {{"VQBackgroundNumbering", "On"},
                                      {"VQBNColor", "Red"},
                                      {"VQStartNumber", "25"},
                                      {"Duplex", "DuplexTumble"}}});
  screen.AwaitReady();
  screen.Choose([screen.view() printers], @"Mono");
  screen.AwaitReady();
  EXPECT_EQ("25", screen.session().Value("VQStartNumber"));
  EXPECT_EQ("DuplexTumble", screen.session().Value("Duplex"));
  screen.AwaitText("VQBNColor \"Red\" does not fit");
  EXPECT_EQUAL_OBJECTS(@"Black", [Outlet(screen, @"popUpColor") titleOfSelectedItem]);
  KeepPicture(screen.view(), "another-queue");
  screen.Choose([screen.view() printers], @"Raw");
  screen.AwaitText("Duplex \"DuplexTumble\" does not fit");
  EXPECT_EQ("", screen.session().Value("Duplex"));
}

OBJC_TEST(PrintDialog, PagesThatCannotBeReadAreRefusedAndStayToBeMended) {
  DialogOnScreen screen;
  screen.AwaitReady();
  PressKeys({"Tab", "Tab", "Tab"});
  TypeText("5-3");
  PressKeys({"Return"});
  screen.AwaitText("5-3");
  EXPECT_FALSE(screen.dialog().HasEnded());
  EXPECT_NE(nil, [[screen.view() pages] currentEditor]);
  TypeText("2");
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_EQ("2-2", TestServer().JobAttributes(screen.dialog().job_number())["page-ranges"]);
}

OBJC_TEST(PrintDialog, ChoicesThatTheirPrinterForbidsAreShownOnceWithAProposal) {
  DialogOnScreen screen({.settings = {{"MediaType", "Transparency"}}});
  screen.AwaitReady();
  screen.ShowPanel(@"Layout");
  const AnswerToQuestion answer({"Escape"});
  screen.Choose(screen.OptionPopUp(@"Two-Sided"), @"Long-Edge Binding");
  HandleEventsUntil([] { return [NSApp modalWindow] == nil; });
  HandleEventsUntilSettled();
  EXPECT_EQ("DuplexNoTumble", screen.session().Value("Duplex")) << "kept both";
  EXPECT_EQ("Transparency", screen.session().Value("MediaType"));
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_EQ("DuplexNoTumble", TestServer().JobAttributes(screen.dialog().job_number())["Duplex"]);
}

OBJC_TEST(PrintDialog, TheProposalEndsTheConflict) {
  DialogOnScreen screen({.settings = {{"MediaType", "Transparency"}}});
  screen.AwaitReady();
  screen.ShowPanel(@"Layout");
  const AnswerToQuestion answer({"Return"});
  screen.Choose(screen.OptionPopUp(@"Two-Sided"), @"Long-Edge Binding");
  HandleEventsUntil([&screen] { return "Plain" == screen.session().Value("MediaType"); });
  EXPECT_EQ("DuplexNoTumble", screen.session().Value("Duplex"));
  screen.ShowPanel(@"Paper");
  EXPECT_EQUAL_OBJECTS(@"Plain Paper", [screen.OptionPopUp(@"Paper Type") titleOfSelectedItem]);
}

OBJC_TEST(PrintDialog, TheSummarySaysWhatTheJobIs) {
  DialogOnScreen screen(
      {.settings = {
           {"VQBackgroundNumbering", "On"}, {"copies", "3"}, {"MediaType", "Transparency"}}});
  screen.AwaitReady();
  screen.ShowPanel(@"Summary");
  const std::string texts = screen.Texts();
  for (const char *text : {"page.ps", "Copies:\n3\n", "Paper Type:\nTransparency\n",
                           "Background Numbering\n", "Start Number:\n1\n"}) {
    EXPECT_THAT(texts, HasSubstr(text));
  }
  KeepPicture(screen.view(), "summary");
}

OBJC_TEST(PrintDialog, InASmallWindowThePanelScrollsAndNothingElseIsCut) {
  DialogOnScreen screen;
  screen.AwaitReady();
  NSWindow *window = screen.dialog().window();
  [window setContentSize:[window contentMinSize]];
  [window makeFirstResponder:nil];  // what shows the focus stands around a control
  HandleEventsUntilSettled();
  PrintDialogView *view = screen.view();
  for (NSView *control : {(NSView *)[view printers], (NSView *)[view presets],
                          (NSView *)[view copies], (NSView *)[view pages], (NSView *)[view panels],
                          (NSView *)[view help], (NSView *)[view cancel], (NSView *)[view print]}) {
    EXPECT_TRUE(NSContainsRect([view bounds], [control frame]));
    for (NSView *other in [view subviews]) {
      if (other == control || [other isHidden] || NSIsEmptyRect([other frame])) continue;
      EXPECT_FALSE(NSIntersectsRect([control frame], [other frame]))
          << [[control description] UTF8String] << [[other description] UTF8String];
    }
  }
  EXPECT_LE([view frame].size.width, 620);
  EXPECT_LE([view frame].size.height, 420);
  NSScrollView *area = [[view panelView] enclosingScrollView];
  EXPECT_TRUE([area hasVerticalScroller]);
  KeepPicture(view, "small");
}
