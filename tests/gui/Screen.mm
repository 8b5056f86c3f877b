#import "tests/gui/Screen.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>

#import "host/dialog/Appearance.h"
#import "host/dialog/DialogWindow.h"
#include "tests/support/LeakCheckingPause.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/Patience.h"
#include "tests/support/RunProgram.h"

using namespace std::chrono_literals;

// Counts how often the run loop turns while the object lives, also where the platform runs it
// itself: while it follows the mouse, or a question is open.
@interface LoopTurns : NSObject {
 @public
  std::atomic<int> count;
  std::atomic<bool> isQuestionOpen;  // one that takes keys
 @private
  NSTimer *timer;
}
- (void)end;
@end

@implementation LoopTurns

- (instancetype)init {
  if ((self = [super init]) == nil) return nil;
  timer = [NSTimer timerWithTimeInterval:0.02
                                  target:self
                                selector:@selector(turn:)
                                userInfo:nil
                                 repeats:YES];
  for (NSString *mode in
       @[ NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode ]) {
    [[NSRunLoop currentRunLoop] addTimer:timer forMode:mode];
  }
  return self;
}

- (void)turn:(NSTimer *)unused {
  (void)unused;
  ++count;
  isQuestionOpen = [[NSApp modalWindow] isKeyWindow];
}

// The timer retains it.
- (void)end {
  [timer invalidate];
}

@end

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

// How often in a row no event may come, each time for a moment, before the last one counts as
// handled.
const int kQuietTurns = 6;

std::atomic<bool> is_pressed = false;  // the mouse, as far as the application knows

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
    if ([event type] == NSLeftMouseDown) is_pressed = true;
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
// run downwards.
Words MoveTo(NSView *view, NSRect part) {
  NSPoint point = NSMakePoint(NSMidX(part), NSMidY(part));
  point = [[view window] convertBaseToScreen:[view convertPoint:point toView:nil]];
  const CGFloat height = [[[view window] screen] frame].size.height;
  return {"xdotool", "mousemove", std::to_string(static_cast<int>(point.x)),
          std::to_string(static_cast<int>(height - point.y))};
}

// What is done while the application may be in the middle of an event, on a thread of its own.
class OtherHand {
 public:
  explicit OtherHand(std::function<void(OtherHand &)> work)
      : turns_([[LoopTurns alloc] init]), thread_([this, work = std::move(work)] {
          work(*this);
          is_done_ = true;
        }) {}
  ~OtherHand() {
    is_over_ = true;
    thread_.join();
    [turns_ end];
    [turns_ release];
  }
  OtherHand(const OtherHand &) = delete;
  OtherHand &operator=(const OtherHand &) = delete;

  bool is_done() const { return is_done_; }

  // The following are for the work.

  // Runs a command, and waits until the application has had time to handle what came of it.
  void Do(const Words &command) {
    const RunResult result = RunProgram(command);
    EXPECT_EQ(0, result.status) << command[0] << ": " << result.err;
    AwaitTurns();
  }
  void AwaitTurns() {
    const int before = turns_->count;
    Becomes([this, before] { return is_over_ || turns_->count > before + kQuietTurns; });
  }
  // False: nobody needs it any more.
  bool AwaitQuestion() {
    return Becomes([this] { return is_over_ || turns_->isQuestionOpen; }) && !is_over_;
  }

 private:
  LoopTurns *const turns_;
  std::atomic<bool> is_done_ = false;
  std::atomic<bool> is_over_ = false;
  std::thread thread_;
};

void RunWithOtherHand(std::function<void(OtherHand &)> work) {
  OtherHand hand(std::move(work));
  HandleEventsUntil([&hand] { return hand.is_done(); });
}

const Words kMouseDown = {"xdotool", "mousedown", "1"};
const Words kMouseUp = {"xdotool", "mouseup", "1"};

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
  int quiet = 0;
  const double start = Now();
  while (quiet < kQuietTurns && Now() - start < kPatience.count()) {
    quiet = HandleEvent() ? 0 : quiet + 1;
  }
  EXPECT_EQ(kQuietTurns, quiet) << "events do not end";
}

void RunOnScreen(const std::vector<std::string> &command) {
  NSTask *task = [NSTask launchedTaskWithLaunchPath:@"/usr/bin/env" arguments:Arguments(command)];
  HandleEventsUntil([task] { return ![task isRunning]; });
  EXPECT_EQ(0, [task terminationStatus]) << command[0] << " failed, or is missing";
  HandleEventsUntilSettled();
}

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

struct AnswerToQuestion::Hand : OtherHand {
  using OtherHand::OtherHand;
};

AnswerToQuestion::AnswerToQuestion(const std::vector<std::string> &keys, int questions)
    : hand_(std::make_unique<Hand>([keys, questions](OtherHand &hand) {
        for (int question = 0; question < questions; ++question) {
          if (!hand.AwaitQuestion()) return;
          hand.AwaitTurns();
          for (const std::string &key : keys) hand.Do({"xdotool", "key", key});
        }
      })) {}

AnswerToQuestion::~AnswerToQuestion() = default;

// How long a press takes is told by the times of its events, not by when they are handled.
void HoldMouse(NSView *view, NSRect part, double seconds) {
  RunOnScreen(MoveTo(view, part));
  RunOnScreen({"xdotool", "mousedown", "1", "sleep", std::to_string(seconds), "mouseup", "1"});
}

void DragMouse(NSView *view, NSRect from, NSRect to) {
  RunOnScreen(MoveTo(view, from));
  is_pressed = false;
  RunWithOtherHand([move = MoveTo(view, to)](OtherHand &hand) {
    hand.Do(kMouseDown);
    EXPECT_TRUE(Becomes([] { return is_pressed.load(); })) << "nobody takes the press";
    hand.AwaitTurns();
    hand.Do(move);
    hand.Do(kMouseUp);
  });
  HandleEventsUntilSettled();
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
