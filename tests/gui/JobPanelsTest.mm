// The dialog's own panels, worked with keys.

#include <gmock/gmock.h>

#include "host/job/SettingOptions.h"
#include "host/presets/Ticket.h"
#import "tests/gui/DialogOnScreen.h"
#include "tests/support/CustomPaper.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

using testing::HasSubstr;

namespace {

std::string ManyOptions() {
  std::string lines;
  for (int number = 10; number < 32; ++number) {
    const std::string keyword = "Trim" + std::to_string(number);
    lines += "*OpenGroup: " + std::string(number % 2 == 0 ? "Even/Even Trims" : "Odd/Odd Trims") +
             "\n*OpenUI *" + keyword + "/Trim " + std::to_string(number) + ": PickOne\n*Default" +
             keyword + ": No\n*" + keyword + " No/No: \"\"\n*" + keyword + " Yes/Cut " +
             std::to_string(number) + " mm: \"\"\n*CloseUI: *" + keyword +
             "\n*CloseGroup: " + (number % 2 == 0 ? "Even" : "Odd") + "\n";
  }
  return lines;
}

DialogOptions OnFile(const TemporaryFolder &folder, const std::string &lines) {
  return {.ppd = folder.Write("printer.ppd", TestPPD::Text(lines)), .has_file = false};
}

// The text box of a row.
NSTextField *Box(DialogOnScreen &screen, NSString *caption) {
  return (NSTextField *)screen.OptionPopUp(caption);
}

void Focus(DialogOnScreen &screen, NSView *view) {
  [screen.dialog().window() makeFirstResponder:view];
}

void TypeInstead(DialogOnScreen &screen, NSTextField *box, const std::string &text) {
  Focus(screen, box);
  PressKeys({"End", "shift+Home", "BackSpace"});
  TypeText(text);
}

NSString *Shown(DialogOnScreen &screen, NSString *caption) {
  return [screen.OptionPopUp(caption) titleOfSelectedItem];
}

}  // namespace

OBJC_TEST(JobPanels, WhatIsChosenReachesTheJob) {
  DialogOnScreen screen;
  screen.AwaitReady();
  screen.ShowPanel(@"Layout");
  KeepPicture(screen.view(), "panel-layout");
  screen.Choose(screen.OptionPopUp(@"Pages per Sheet"), @"2");
  screen.Choose(screen.OptionPopUp(@"Page Order"), @"Right to Left, Then Down");
  screen.Choose(screen.OptionPopUp(@"Border"), @"Thin Line");
  screen.ShowPanel(@"Paper");
  KeepPicture(screen.view(), "panel-paper");
  screen.Choose(screen.OptionPopUp(@"Scaling"), @"Fit to Paper");
  screen.ShowPanel(@"Pages");
  KeepPicture(screen.view(), "panel-pages");
  screen.Choose(screen.OptionPopUp(@"Pages to Print"), @"Odd Pages Only");
  screen.ShowPanel(@"Job");
  screen.Choose(screen.OptionPopUp(@"Banner Before"), @"Standard");
  KeepPicture(screen.view(), "panel-job");
  screen.ShowPanel(@"Summary");
  EXPECT_THAT(screen.Texts(), HasSubstr("Pages per Sheet:\n2\n"));
  EXPECT_THAT(screen.Texts(), HasSubstr("Banner Before:\nStandard\n"));
  PressKeys({"Return"});
  screen.AwaitEnd();
  auto job = TestServer().JobAttributes(screen.dialog().job_number());
  EXPECT_EQ("2", job["number-up"]);
  EXPECT_EQ("rltb", job["number-up-layout"]);
  EXPECT_EQ("single", job["page-border"]);
  EXPECT_EQ("fit", job["print-scaling"]);
  EXPECT_EQ("odd", job["page-set"]);
  EXPECT_EQ("standard,none", job["job-sheets"]);
}

OBJC_TEST(JobPanels, ARowIsGrayWithAReasonUntilItCanBeUsed) {
  DialogOnScreen screen;
  screen.AwaitReady();
  screen.ShowPanel(@"Layout");
  NSPopUpButton *order = screen.OptionPopUp(@"Page Order");
  EXPECT_FALSE([order isEnabled]);
  EXPECT_EQUAL_OBJECTS(@"Choose several pages per sheet first.", [order toolTip]);
  Focus(screen, screen.OptionPopUp(@"Pages per Sheet"));
  PressKeys({"Tab"});
  EXPECT_EQ(screen.OptionPopUp(@"Border"), [screen.dialog().window() firstResponder])
      << "a gray one is passed over";
  screen.Choose(screen.OptionPopUp(@"Pages per Sheet"), @"4");
  EXPECT_TRUE([order isEnabled]);
  EXPECT_EQ(nil, [order toolTip]);
  screen.Choose(screen.OptionPopUp(@"Pages per Sheet"), @"1");
  EXPECT_FALSE([order isEnabled]);
}

OBJC_TEST(JobPanels, APresetKeepsThem) {
  DialogOnScreen screen;
  screen.AwaitReady();
  screen.ShowPanel(@"Layout");
  screen.Choose(screen.OptionPopUp(@"Pages per Sheet"), @"2");
  screen.ShowPanel(@"Pages");
  screen.Choose(screen.OptionPopUp(@"Pages to Print"), @"Even Pages Only");
  {
    const AnswerToQuestion answer({"End", "ctrl+a", "p", "Return"});
    screen.Choose([screen.view() presets], @"Save Settings as Preset…");
    HandleEventsUntil([] { return [NSApp modalWindow] == nil; });
    HandleEventsUntilSettled();
  }
  const auto preset = screen.store().Find("p");
  ASSERT_TRUE(preset);
  const JobOptions stored = *JobOptionsFromSettings(ReadTicket(preset->path)->get());
  EXPECT_EQ("2", stored.at("number-up"));
  EXPECT_EQ("even", stored.at("page-set"));
  screen.Choose([screen.view() presets], @"Default Settings");
  EXPECT_EQUAL_OBJECTS(@"All Pages", Shown(screen, @"Pages to Print"));
  screen.Choose([screen.view() presets], @"p");
  EXPECT_EQUAL_OBJECTS(@"Even Pages Only", Shown(screen, @"Pages to Print"));
}

OBJC_TEST(JobPanels, ACustomSizeIsTypedAndWhatIsWrongWithItIsSaid) {
  const TemporaryFolder folder;
  DialogOnScreen screen(OnFile(folder, kCustomSizes));
  screen.AwaitReady();
  screen.ShowPanel(@"Paper");
  EXPECT_FALSE([Box(screen, @"Custom Size") isEnabled]);
  screen.Choose(screen.OptionPopUp(@"Media Size"), @"Custom");
  EXPECT_EQUAL_OBJECTS(@"209.9 x 297 mm", [Box(screen, @"Custom Size") stringValue]);
  TypeInstead(screen, Box(screen, @"Custom Size"), "10 x 5000 mm");
  PressKeys({"Return"});
  screen.AwaitText("Paper of this printer can be from 12.7 x 12.7 mm to 352.8 x 352.8 mm.");
  EXPECT_FALSE(screen.dialog().HasEnded());
  EXPECT_NE(nil, [Box(screen, @"Custom Size") currentEditor]);
  screen.ShowPanel(@"Pages");
  EXPECT_EQUAL_OBJECTS(@"Paper", [[screen.view() panels] titleOfSelectedItem])
      << "it is left when it is right";
  TypeInstead(screen, Box(screen, @"Custom Size"), "10 x 15 cm");
  EXPECT_EQ("Custom.10x15cm", screen.session().Value("PageSize")) << "as it is typed";
  KeepPicture(screen.view(), "panel-custom-size");
  PressKeys({"Return"});
  screen.AwaitEnd();
  EXPECT_EQ("Custom.10x15cm", screen.session().Value("PageSize"));
}

OBJC_TEST(JobPanels, OfManyPrinterOptionsThoseThatAreLookedForAreShown) {
  const TemporaryFolder folder;
  DialogOnScreen screen(OnFile(folder, ManyOptions()));
  screen.AwaitReady();
  screen.ShowPanel(@"Printer Options");
  KeepPicture(screen.view(), "panel-many-options");
  EXPECT_THAT(screen.Texts(), HasSubstr("Even Trims\n"));
  const CGFloat height = [[screen.view() panelView] frame].size.height;
  Focus(screen, Box(screen, @"Search"));
  TypeText("cut 25");
  EXPECT_THAT(screen.Texts(), HasSubstr("Odd Trims\nTrim 25:\n"));
  EXPECT_EQ(std::string::npos, screen.Texts().find("Trim 24"));
  EXPECT_EQ(std::string::npos, screen.Texts().find("Even Trims"));
  EXPECT_GT(height / 2, [[screen.view() panelView] frame].size.height);
  KeepPicture(screen.view(), "panel-found-option");
  PressKeys({"Tab"});
  EXPECT_EQ(screen.OptionPopUp(@"Trim 25"), [screen.dialog().window() firstResponder])
      << "hidden ones are passed over";
  Focus(screen, Box(screen, @"Search"));
  PressKeys({"End"});
  TypeText("x");
  EXPECT_THAT(screen.Texts(), HasSubstr("no option has this in its name or its choices\n"));
}

OBJC_TEST(JobPanels, AValueThatIsNoneOfTheChoicesIsShownAsItIs) {
  DialogOnScreen screen({.settings = {{"job-priority", "42"}, {"job-hold-until", "22:30"}}});
  screen.AwaitReady();
  screen.ShowPanel(@"Job");
  EXPECT_EQUAL_OBJECTS(@"42", Shown(screen, @"Priority"));
  EXPECT_EQUAL_OBJECTS(@"22:30", Shown(screen, @"Printing Time"));
  screen.Choose(screen.OptionPopUp(@"Priority"), @"High");
  screen.ShowPanel(@"Pages");
  screen.ShowPanel(@"Job");
  EXPECT_EQUAL_OBJECTS(@"High", Shown(screen, @"Priority"));
  EXPECT_EQ(-1, [screen.OptionPopUp(@"Priority") indexOfItemWithTitle:@"42"]);
}

OBJC_TEST(JobPanels, AnAccountIsAskedForWhereTheServerWantsIt) {
  const TemporaryFolder folder;
  TestServer().AddQueue(
      {.name = "Accounting",
       .ppd =
           folder.Write("a.ppd", NumberingPPDText(true, "*cupsJobAccountId: True\n"
                                                        "*cupsMandatory: \"job-account-id\"\n"))});
  {
    DialogOnScreen screen({.queue = "Accounting"});
    screen.AwaitReady();
    PressKeys({"Return"});
    screen.AwaitText("\"job-account-id\" attribute is required");
    screen.ShowPanel(@"Job");
    TypeInstead(screen, Box(screen, @"Account"), "4711");
    PressKeys({"Return"});
    screen.AwaitEnd();
    EXPECT_EQ("4711", TestServer().JobAttributes(screen.dialog().job_number())["job-account-id"]);
  }
  TestServer().Run({"lpadmin", "-x", "Accounting"});
}
