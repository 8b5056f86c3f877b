#include "tests/portal/Dialogs.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/RunProgram.h"

namespace {

using namespace std::chrono_literals;

// Between two keys, so that what the first one changes is there for the second.
constexpr auto kBetweenKeys = 150ms;

void Focus(const std::string &window) {
  EXPECT_TRUE(Becomes([&window] {
    return RunProgram({"timeout", "5", "xdotool", "windowactivate", "--sync", window}).status == 0;
  })) << "the window does not take the focus";
}

}  // namespace

std::vector<std::string> WindowsOf(const std::string &window_class) {
  std::istringstream found(
      RunProgram({"xdotool", "search", "--onlyvisible", "--classname", "^" + window_class + "$"})
          .out);
  std::vector<std::string> windows;
  for (std::string window; std::getline(found, window);) windows.push_back(window);
  return windows;
}

std::string AwaitWindow(const std::string &window_class) {
  std::string window;
  Becomes([&] {
    const auto windows = WindowsOf(window_class);
    if (!windows.empty()) window = windows.back();
    return !window.empty();
  });
  EXPECT_FALSE(window.empty()) << "no window of " << window_class;
  return window;
}

void PressIn(const std::string &window, const std::vector<std::string> &keys) {
  Focus(window);
  for (const std::string &key : keys) {
    EXPECT_EQ(0, RunProgram({"xdotool", "key", key}).status) << key;
    std::this_thread::sleep_for(kBetweenKeys);
  }
}

bool PressUntil(const std::string &window, const std::string &key,
                const std::function<bool()> &done) {
  return Becomes([&] {
    if (done()) return true;
    if (RunProgram({"timeout", "5", "xdotool", "windowactivate", "--sync", window}).status == 0) {
      RunProgram({"xdotool", "key", key});
    }
    std::this_thread::sleep_for(250ms);
    return done();
  });
}

void TypeIn(const std::string &window, const std::string &text) {
  Focus(window);
  EXPECT_EQ(0, RunProgram({"xdotool", "type", "--delay", "80", text}).status);
  std::this_thread::sleep_for(kBetweenKeys);
}
