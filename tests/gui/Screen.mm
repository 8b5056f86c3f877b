#import "tests/gui/Screen.h"

#include <filesystem>
#include <fstream>
#include <optional>

#import "host/dialog/Appearance.h"
#import "host/dialog/DialogWindow.h"
#include "tests/support/LeakCheckingPause.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/Patience.h"

namespace {

// Before the application object exists, as in the program.
class LightAppearance : public testing::Environment {
  void SetUp() override {
    @autoreleasepool {
      UseLightAppearance();
    }
  }
};
testing::Environment *const appearance = testing::AddGlobalTestEnvironment(new LightAppearance);

const double kSettled = 0.12;  // how long no event may come before the last one counts as handled

double Now() { return [NSDate timeIntervalSinceReferenceDate]; }

bool IsAnyWindowVisible() {
  for (NSWindow *window in [NSApp windows]) {
    if ([window isVisible]) return true;
  }
  return false;
}

// Handles the next event, if one comes soon.
bool HandleEvent() {
  @autoreleasepool {
    // Told that it is active no more, the application asks the display for its windows; of an
    // answer without any the platform loses the memory.
    std::optional<LeakCheckingPause> pause;
    if (!IsAnyWindowVisible()) pause.emplace();
    NSEvent *event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                        untilDate:[NSDate dateWithTimeIntervalSinceNow:0.02]
                                           inMode:NSDefaultRunLoopMode
                                          dequeue:YES];
    if (event == nil) return false;
    [NSApp sendEvent:event];
    return true;
  }
}

NSArray *Arguments(const std::vector<std::string> &words) {
  NSMutableArray *arguments = [NSMutableArray array];
  for (const std::string &word : words) {
    [arguments addObject:[NSString stringWithUTF8String:word.c_str()]];
  }
  return arguments;
}

using Words = std::vector<std::string>;

// Moves the mouse to the middle of a part of the view; the screen coordinates that xdotool takes
// run downwards. Events that come at once after a move or a press would be taken for no click at
// all.
Words MoveTo(NSView *view, NSRect part) {
  NSPoint point = NSMakePoint(NSMidX(part), NSMidY(part));
  point = [[view window] convertBaseToScreen:[view convertPoint:point toView:nil]];
  const CGFloat height = [[[view window] screen] frame].size.height;
  return {"mousemove", std::to_string(static_cast<int>(point.x)),
          std::to_string(static_cast<int>(height - point.y)), "sleep", "0.2"};
}

const Words kMouseDown = {"mousedown", "1"};
const Words kMouseUp = {"mouseup", "1", "sleep", "0.1"};

}  // namespace

void HandleEventsUntil(const std::function<bool()> &done) {
  const double start = Now();
  while (!done()) {
    HandleEvent();
    if (Now() - start > kPatience.count()) {
      ADD_FAILURE() << "what was waited for did not happen";
      return;
    }
  }
}

void HandleEventsUntilSettled() {
  double last = Now();
  HandleEventsUntil([&last] {
    if (HandleEvent()) last = Now();
    return Now() - last > kSettled;
  });
}

void RunOnScreen(const std::vector<std::string> &command) {
  NSTask *task = [NSTask launchedTaskWithLaunchPath:@"/usr/bin/env" arguments:Arguments(command)];
  HandleEventsUntil([task] { return ![task isRunning]; });
  EXPECT_EQ(0, [task terminationStatus]) << command[0] << " failed, or is missing";
  HandleEventsUntilSettled();
}

namespace {

void RunMouse(std::initializer_list<Words> steps) {
  Words command = {"xdotool"};
  for (const Words &step : steps) command.insert(command.end(), step.begin(), step.end());
  RunOnScreen(command);
}

}  // namespace

void Activate(const std::string &title) {
  RunOnScreen({"xdotool", "search", "--sync", "--onlyvisible", "--name", "^" + title + "$",
               "windowactivate", "--sync"});
}

void PressKeys(const std::vector<std::string> &keys) {
  for (const std::string &key : keys) RunOnScreen({"xdotool", "key", key});
}

void TypeText(const std::string &text) {
  for (char character : text) RunOnScreen({"xdotool", "type", std::string(1, character)});
}

void PressKeysInNextWindow(const std::string &title, const std::vector<std::string> &keys) {
  std::vector<std::string> words = {
      "sh", "-c",
      "for attempt in $(seq 200); do\n"
      "  [ \"$(xdotool getactivewindow getwindowname 2>/dev/null)\" = \"$0\" ] && break\n"
      "  sleep 0.05\n"
      "done\n"
      "sleep 0.3\n"
      "exec xdotool key --delay 150 \"$@\"\n",
      title};
  words.insert(words.end(), keys.begin(), keys.end());
  [NSTask launchedTaskWithLaunchPath:@"/usr/bin/env" arguments:Arguments(words)];
}

void HoldMouse(NSView *view, NSRect part, double seconds) {
  RunMouse({MoveTo(view, part), kMouseDown, {"sleep", std::to_string(seconds)}, kMouseUp});
}

void DragMouse(NSView *view, NSRect from, NSRect to) {
  RunMouse({MoveTo(view, from), kMouseDown, {"sleep", "0.3"}, MoveTo(view, to), kMouseUp});
}

void KeepPicture(NSView *view, const std::string &name) {
  const std::filesystem::path folder = BINARY_DIRECTORY "/pictures";
  std::filesystem::create_directories(folder);
  NSData *picture = PictureOfView(view);
  ASSERT_NE(nil, picture);
  std::ofstream(folder / (name + ".png"), std::ios::binary)
      .write(static_cast<const char *>([picture bytes]),
             static_cast<std::streamsize>([picture length]));
}
