// What people see who print from an application that knows nothing of any of this: the whole way,
// to the printed pages.

#include <csignal>

#include "tests/portal/PrintingSession.h"

namespace {

class Gtk3Demo : public PrintingSession {
 protected:
  RunOptions Options() const {
    RunOptions options{.environment = session_.Environment()};
    options.environment["GTK_USE_PORTAL"] = "1";
    return options;
  }

  const std::vector<std::string> demo_ = {"gtk3-demo", "--run=printing"};
};

}  // namespace

TEST_F(Gtk3Demo, PrintsItsPagesWithNumbers) {
  const RunningProgram demo(demo_, Options());
  const std::string dialog = AwaitDialog();
  SwitchNumberingOn(dialog);
  EndDialog(dialog, "Return");
  const std::string printed = Printed(AwaitJobs(1).front());
  EXPECT_THAT(NumbersOnPages(printed), testing::StartsWith("25 26 27 "));
}

TEST_F(Gtk3Demo, PrintsNothingWhereTheDialogIsCanceled) {
  const RunningProgram demo(demo_, Options());
  EndDialog(AwaitDialog(), "Escape");
  EXPECT_TRUE(Becomes([this] { return session_.Children().empty(); }));
  EXPECT_FALSE(demo.HasEnded(std::chrono::milliseconds(500)));
  AwaitJobs(0);
}

TEST_F(Gtk3Demo, TakesItsDialogAlongWhenItIsKilled) {
  {
    const RunningProgram demo(demo_, Options());
    AwaitDialog();
  }
  EXPECT_TRUE(Becomes([] { return !IsAnyDialogOpen(); }));
  EXPECT_TRUE(Becomes([this] { return session_.Children().empty(); }));
  EXPECT_TRUE(IsRunning(session_.Service()));
}

TEST_F(Gtk3Demo, LosesItsDialogWithTheServiceAndGetsAnotherOne) {
  const RunningProgram demo(demo_, Options());
  AwaitDialog();
  const pid_t service = session_.Service();
  const std::vector<pid_t> dialogs = session_.Children();
  ASSERT_EQ(1U, dialogs.size());
  ASSERT_EQ(0, kill(service, SIGKILL));
  EXPECT_TRUE(Becomes([&] { return !IsRunning(dialogs.front()); }));
  EXPECT_FALSE(IsAnyDialogOpen());
  const RunningProgram again(demo_, Options());
  EndDialog(AwaitDialog(), "Escape");
  EXPECT_NE(service, session_.Service());
}
