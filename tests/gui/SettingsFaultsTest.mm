// The dialog where the print system, or an extension, keeps the settings from being changed.

#include <gmock/gmock.h>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"

using testing::HasSubstr;

namespace {

void Lock(DialogOnScreen &screen, NSString *key, NSString *value) {
  PMPrintSettingsSetValue(screen.session().settings(), (CFStringRef)key, (CFTypeRef)value, true);
}

}  // namespace

OBJC_TEST(DialogSettingsFaults, AnOptionThatAnExtensionHasLockedGoesBackWithANote) {
  DialogOnScreen screen;
  screen.AwaitReady();
  Lock(screen, @"Duplex", @"DuplexTumble");
  screen.ShowPanel(@"Layout");
  NSPopUpButton *two_sided = screen.OptionPopUp(@"Two-Sided");
  EXPECT_EQUAL_OBJECTS(@"Short-Edge Binding", [two_sided titleOfSelectedItem]);
  screen.Choose(two_sided, @"Off");
  screen.AwaitText("Cannot change Duplex of the job: an extension has locked it");
  EXPECT_EQUAL_OBJECTS(@"Short-Edge Binding", [two_sided titleOfSelectedItem]);
}

OBJC_TEST(DialogSettingsFaults, CopiesThatAnExtensionHasLockedAreNotPrintedInAnotherNumber) {
  DialogOnScreen screen;
  screen.AwaitReady();
  Lock(screen, @"copies", @"5");
  PressKeys({"Tab", "Tab"});
  TypeText("2");
  PressKeys({"Return"});
  screen.AwaitText("Cannot change copies of the job: an extension has locked it");
  EXPECT_FALSE(screen.dialog().HasEnded());
  EXPECT_FALSE(screen.dialog().has_sent());
}

// From the click on Print to the job: each call in turn.
OBJC_TEST(DialogSettingsFaults, AJobIsSentAsShownOrNotAtAllWhicheverCallFails) {
  const DialogOptions options = {
      .settings = {{"VQBackgroundNumbering", "On"}, {"VQBNSize", "Large"}}};
  int calls = 0;
  {
    DialogOnScreen screen(options);
    screen.AwaitReady();
    interposed::FailCall(0, 0);
    [[screen.view() print] performClick:nil];
    calls = interposed::CallsCounted();
    screen.AwaitEnd();
  }
  ASSERT_GT(calls, 5);
  int refused = 0;
  for (int call = 1; call <= calls; ++call) {
    @autoreleasepool {
      DialogOnScreen screen(options);
      screen.AwaitReady();
      interposed::FailCall(call, kPMInvalidParameter);
      [[screen.view() print] performClick:nil];
      const std::string failed = interposed::FailedCall();
      interposed::FailCall(0, 0);
      SCOPED_TRACE("call " + std::to_string(call) + ": " + failed);
      if (!screen.dialog().has_sent()) {
        ++refused;
        screen.AwaitText("Cannot read the settings of the job: error -50 of the print system");
        continue;
      }
      screen.AwaitEnd();
      auto attributes = TestServer().JobAttributes(screen.dialog().job_number());
      // What the panel cannot write itself is for it to know.
      if (!failed.starts_with("set VQ")) EXPECT_EQ("Large", attributes["VQBNSize"]);
      EXPECT_EQ("On", attributes["VQBackgroundNumbering"]);
    }
  }
  EXPECT_GT(refused, 3);
}

OBJC_TEST(DialogSettingsFaults, NoPresetIsSavedOfSettingsThatCouldNotBeRead) {
  DialogOnScreen screen;
  screen.AwaitReady();
  // A question for a name, which must not come, is answered.
  const AnswerToQuestion answer({"Escape"});
  interposed::FailCall(1, kPMInvalidParameter);
  screen.Choose([screen.view() presets], @"Save Settings as Preset…");
  interposed::FailCall(0, 0);
  const std::string texts = screen.Texts();
  EXPECT_THAT(texts,
              HasSubstr("Cannot read the settings of the job: error -50 of the print system"));
  EXPECT_TRUE(screen.store().List().empty());
}
