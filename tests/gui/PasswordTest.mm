// The print server wants a password while the dialog is open.

#include <gmock/gmock.h>

#include <csignal>

#include "host/dialog/Poller.h"
#import "tests/gui/DialogOnScreen.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"

using testing::ContainsRegex;
using testing::ElementsAre;

namespace {

using Keys = std::vector<std::string>;

const Keys kRight = {"a", "p", "p", "l", "e", "Return"};
const Keys kWrong = {"p", "e", "a", "r", "Return"};

// The queue Locked prints with the password of ann.
PrivateServer &LockedServer() {
  static PrivateServer server({{"ann", "apple"}});
  static bool has_queue = false;
  if (has_queue) return server;
  has_queue = true;
  const TemporaryFolder folder;
  server.AddQueue({.name = "Locked",
                   .ppd = folder.Write("color.ppd", NumberingPPDText(true)),
                   .options = {{"printer-op-policy", "password"}}});
  return server;
}

// The dialog, run by ann, with all for the job chosen.
class LockedDialog {
 public:
  LockedDialog() { screen_.AwaitReady(); }

  DialogOnScreen &screen() { return screen_; }
  // Those that were ever made.
  std::string jobs() const {
    const PrivateServer &server = LockedServer();
    return server.Run({"lpstat", "-h", server.socket(), "-W", "all", "-o", "Locked"});
  }
  // Prints, and does this when the question comes.
  void PrintAnd(const Keys &keys) {
    const AnswerToQuestion answer(keys);
    PressKeys({"Return"});
    HandleEventsUntil([this] { return screen_.dialog().HasEnded() || IsReady(); });
  }
  bool IsReady() { return [[screen_.view() print] isEnabled]; }

 private:
  DialogOnScreen screen_{{.queue = "Locked",
                          .server = LockedServer().address(),
                          .limit = std::chrono::milliseconds(2000 * kSlowdown)}};
  const EnvironmentVariable user_{"CUPS_USER", "ann"};  // which dialogs on screen take away
};

// What the boxes of a question hold that stand in the window, whenever there is one.
class Boxes {
 public:
  const std::vector<std::string> &texts() const { return texts_; }
  bool is_secret() const { return is_secret_; }

 private:
  bool Look() {
    NSWindow *window = [NSApp modalWindow];
    if (window == nil || !texts_.empty()) return false;
    for (NSView *view in [[window contentView] subviews]) {
      if (![view isKindOfClass:[NSTextField class]] || ![(NSTextField *)view isEditable]) continue;
      texts_.push_back([[(NSTextField *)view stringValue] UTF8String]);
      is_secret_ = [view isKindOfClass:[NSSecureTextField class]];
    }
    return false;
  }

  std::vector<std::string> texts_;
  bool is_secret_ = false;
  Poller poller_{[this] { return Look(); }};
};

// Real accounts of the machine are nothing for a test, and containers may forbid the mount that
// gives a server others.
#define SKIP_WITHOUT_PASSWORDS() \
  if (!CanCheckPasswords()) GTEST_SKIP() << "no passwords of a test's own on this machine"

}  // namespace

OBJC_TEST(Password, ReturnGivesItAndTheJobIsPrinted) {
  SKIP_WITHOUT_PASSWORDS();
  LockedDialog dialog;
  const Boxes boxes;
  dialog.PrintAnd(kRight);
  ASSERT_TRUE(dialog.screen().dialog().HasEnded()) << dialog.screen().Texts();
  EXPECT_THAT(
      dialog.jobs(),
      ContainsRegex("Locked-" + std::to_string(dialog.screen().dialog().job_number()) + " +ann "));
  EXPECT_THAT(boxes.texts(), ElementsAre("ann", ""));
  EXPECT_TRUE(boxes.is_secret()) << "the second box";
}

OBJC_TEST(Password, TabWalksToTheNameAndTheButtons) {
  SKIP_WITHOUT_PASSWORDS();
  LockedDialog dialog;
  Keys keys = {"Tab", "Tab", "Tab", "ctrl+a", "b", "o", "b", "shift+Tab", "shift+Tab", "space"};
  dialog.PrintAnd(keys);
  dialog.screen().AwaitText("none was given");
  keys = {"Tab", "Tab", "Tab", "ctrl+a", "a", "n", "n", "Tab"};
  keys.insert(keys.end(), kRight.begin(), kRight.end());
  dialog.PrintAnd(keys);
  EXPECT_TRUE(dialog.screen().dialog().HasEnded()) << dialog.screen().Texts();
}

OBJC_TEST(Password, EscapePrintsNothingAndTheNextJobAsksAgain) {
  SKIP_WITHOUT_PASSWORDS();
  LockedDialog dialog;
  const std::string before = dialog.jobs();
  dialog.PrintAnd({"a", "Escape"});
  dialog.screen().AwaitText("Not printed: the print server " + LockedServer().address() +
                            " refuses the job: it wants a password, and none was given");
  EXPECT_EQ(before, dialog.jobs());
  EXPECT_TRUE(dialog.IsReady());
  dialog.PrintAnd(kRight);
  EXPECT_TRUE(dialog.screen().dialog().HasEnded()) << dialog.screen().Texts();
}

OBJC_TEST(Password, ThreeWrongOnesAreARefusal) {
  SKIP_WITHOUT_PASSWORDS();
  LockedDialog dialog;
  const AnswerToQuestion answer(kWrong, 3);  // each opens as soon as the one before is answered
  PressKeys({"Return"});
  dialog.screen().AwaitText("three were wrong");
}

OBJC_TEST(Password, IsNotCopied) {
  SKIP_WITHOUT_PASSWORDS();
  LockedDialog dialog;
  NSPasteboard *pasteboard = [NSPasteboard generalPasteboard];
  [pasteboard declareTypes:@[ NSStringPboardType ] owner:nil];
  [pasteboard setString:@"before" forType:NSStringPboardType];
  dialog.PrintAnd({"a", "p", "p", "l", "e", "ctrl+a", "ctrl+c", "ctrl+x", "Escape"});
  EXPECT_EQUAL_OBJECTS(@"before", [pasteboard stringForType:NSStringPboardType]);
}

OBJC_TEST(Password, ASignalWithdrawsTheQuestion) {
  SKIP_WITHOUT_PASSWORDS();
  LockedDialog dialog;
  const std::string before = dialog.jobs();
  Poller signal([] {
    if ([NSApp modalWindow] == nil) return false;
    raise(SIGINT);
    return true;
  });
  PressKeys({"Return"});
  dialog.screen().AwaitEnd();
  EXPECT_EQ(nil, [NSApp modalWindow]);
  EXPECT_EQ(before, dialog.jobs());
}
