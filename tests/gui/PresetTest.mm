#include "host/dialog/PresetChooser.h"

#include "host/job/SettingOptions.h"
#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"

namespace {

NSString *const kSave = @"Save Settings as Preset…";

id Panel(DialogOnScreen &screen, NSString *outlet) {
  return Outlet(screen.session().panels().front()->panel(), outlet);
}

JobOptions Stored(const std::filesystem::path &path) {
  Expected<PrintSettings> settings = ReadTicket(path);
  if (!settings) return {{"failure", settings.message()}};
  return *JobOptionsFromSettings(settings->get());
}

// Answers the question for a name while it is asked.
void ChooseAndType(DialogOnScreen &screen, NSString *command, const std::string &name) {
  const AnswerToQuestion answer({"End", "ctrl+a", name, "Return"});
  screen.Choose([screen.view() presets], command);
  HandleEventsUntil([] { return [NSApp modalWindow] == nil; });
  HandleEventsUntilSettled();
}

}  // namespace

OBJC_TEST(Preset, IsSavedWithWhatThePanelShowsAndAppliedAgain) {
  DialogOnScreen screen;
  screen.AwaitReady();
  [screen.dialog().window() makeFirstResponder:Panel(screen, @"functionValid")];
  PressKeys({"space"});
  ASSERT_EQ(NSControlStateValueOn, [Panel(screen, @"functionValid") state]);
  screen.Choose(Panel(screen, @"popUpColor"), @"Green");
  EXPECT_EQUAL_OBJECTS(@"Green", [Panel(screen, @"popUpColor") titleOfSelectedItem]);
  EXPECT_TRUE(screen.session().Set("copies", "4"));
  ChooseAndType(screen, kSave, "a");
  EXPECT_EQUAL_OBJECTS(@"a", [[screen.view() presets] titleOfSelectedItem]);
  const auto preset = screen.store().Find("a");
  ASSERT_TRUE(preset);
  JobOptions stored = Stored(preset->path);
  EXPECT_EQ("On", stored["VQBackgroundNumbering"]);
  EXPECT_EQ("Green", stored["VQBNColor"]);

  screen.Choose([screen.view() presets], @"Default Settings");
  EXPECT_EQUAL_OBJECTS(@"Black", [Panel(screen, @"popUpColor") titleOfSelectedItem]);
  EXPECT_EQ("Off", screen.session().Value("VQBackgroundNumbering"));
  screen.Choose([screen.view() presets], @"a");
  EXPECT_EQUAL_OBJECTS(@"Green", [Panel(screen, @"popUpColor") titleOfSelectedItem]);
  EXPECT_EQ("On", screen.session().Value("VQBackgroundNumbering"));
}

OBJC_TEST(Preset, IsRenamedAndDeleted) {
  DialogOnScreen screen;
  screen.AwaitReady();
  ChooseAndType(screen, kSave, "b");
  ChooseAndType(screen, @"Rename “b”…", "c");
  EXPECT_FALSE(screen.store().Find("b"));
  EXPECT_TRUE(screen.store().Find("c"));
  EXPECT_EQUAL_OBJECTS(@"c", [[screen.view() presets] titleOfSelectedItem]);

  const AnswerToQuestion cancel({"Escape"});
  screen.Choose([screen.view() presets], @"Delete “c”…");
  HandleEventsUntil([] { return [NSApp modalWindow] == nil; });
  HandleEventsUntilSettled();
  EXPECT_TRUE(screen.store().Find("c")) << "canceled";

  const AnswerToQuestion confirm({"Return"});
  screen.Choose([screen.view() presets], @"Delete “c”…");
  HandleEventsUntil([&screen] { return !screen.store().Find("c"); });
  HandleEventsUntilSettled();
  EXPECT_EQUAL_OBJECTS(@"Default Settings", [[screen.view() presets] titleOfSelectedItem]);
}

OBJC_TEST(Preset, ADamagedOneIsNamedLeftOutAndKept) {
  TemporaryFolder folder;
  DialogOnScreen screen({.damaged_preset = "half"});
  screen.AwaitReady();
  screen.AwaitText("The preset \"half\" is left out: ");
  EXPECT_EQ(-1, [[screen.view() presets] indexOfItemWithTitle:@"half"]);
  EXPECT_TRUE(screen.store().Find("half"));
  KeepPicture(screen.view(), "damaged-preset");
}

OBJC_TEST(Preset, WhatTheLastJobUsedIsOfferedAndNeverAppliedUnasked) {
  DialogOnScreen screen({.last_used = {{"VQBackgroundNumbering", "On"}, {"VQStartNumber", "77"}}});
  screen.AwaitReady();
  EXPECT_EQUAL_OBJECTS(@"Default Settings", [[screen.view() presets] titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"1", [Panel(screen, @"textBoxStartNumber") stringValue]);
  screen.Choose([screen.view() presets], @"Last Used");
  EXPECT_EQUAL_OBJECTS(@"77", [Panel(screen, @"textBoxStartNumber") stringValue]);
}
