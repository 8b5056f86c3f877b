// The built program's window on a display that shows nothing else, worked with real key events.

#ifndef TESTS_HOST_COMMAND_SHOWNDIALOG_H
#define TESTS_HOST_COMMAND_SHOWNDIALOG_H

#include <gmock/gmock.h>

#include <sstream>

#include "tests/support/Arguments.h"
#include "tests/support/Patience.h"
#include "tests/support/RunProgram.h"

inline constexpr char kColorPPD[] = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";
inline constexpr char kMonoPPD[] = SOURCE_DIRECTORY "/tests/support/SampleMono.ppd";

class WindowOfProgram {
 public:
  // Gives it the focus. Nothing else is on the display but this window of another program's, if it
  // is named.
  explicit WindowOfProgram(const Arguments &arguments, const std::string &out = "",
                           const std::string &other = "")
      : others_(other.empty() ? 0 : 1),
        program_(OnAnEmptyDisplay(Arguments{kPdeprint} + arguments),
                 {.environment = {{"LANGUAGE", "en"}}, .out = out}) {
    AwaitWindows(1);
    Arguments windows = VisibleWindows();
    std::erase(windows, other);
    if (windows.empty()) return;
    window_ = windows.front();
    const RunResult result =
        RunProgram({"timeout", "20", "xdotool", "windowactivate", "--sync", window_});
    EXPECT_EQ(0, result.status) << "the window does not take the focus";
  }

  void Press(const Arguments &keys) {
    Arguments command = {"xdotool", "key", "--delay", "40"};
    command.insert(command.end(), keys.begin(), keys.end());
    EXPECT_EQ(0, RunProgram(command).status);
  }

  void Type(const std::string &text) {
    EXPECT_EQ(0, RunProgram({"xdotool", "type", "--delay", "40", text}).status);
  }

  // Opens the menu of the pop-up button that has the focus.
  void OpenMenu() {
    Press({"space"});
    AwaitWindows(2);
  }
  // Ends the open menu with this key.
  void EndMenu(const std::string &key) {
    Press({key});
    AwaitWindows(1);
  }

  void AwaitWindows(size_t of_program) {
    const size_t count = of_program + others_;
    EXPECT_TRUE(Becomes([count] { return VisibleWindows().size() == count; }))
        << "there are not " << count << " windows but " << VisibleWindows().size();
  }

  RunResult Close(const std::string &key = "Return") {
    Press({key});
    return program_.Wait();
  }

  const std::string &window() const { return window_; }
  std::string Title() const { return RunProgram({"xdotool", "getwindowname", window_}).out; }
  RunningProgram &program() { return program_; }

 private:
  // The display shows nothing else; a menu is a window too.
  static Arguments VisibleWindows() {
    std::istringstream lines(RunProgram({"xdotool", "search", "--onlyvisible", "--name", "."}).out);
    Arguments windows;
    for (std::string line; std::getline(lines, line);) windows.push_back(line);
    return windows;
  }

  // The server takes away the window of a program that has ended in its own time.
  Arguments OnAnEmptyDisplay(Arguments command) {
    AwaitWindows(0);
    return command;
  }

  const size_t others_;
  RunningProgram program_;
  std::string window_;
};

// The dialog with the panel.
class Dialog : public WindowOfProgram {
 public:
  explicit Dialog(const Arguments &more, const std::string &ppd = kColorPPD,
                  const std::string &out = "")
      : WindowOfProgram(Arguments{"show", "--ppd", ppd} + more, out) {}
};

#endif
