#import "tests/gui/PanelOnScreen.h"

#include <functional>

#import "host/dialog/Appearance.h"
#include "host/job/JobTicket.h"
#import "tests/support/ObjCTest.h"

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
const double kPatience = 10;

double Now() { return [NSDate timeIntervalSinceReferenceDate]; }

// Handles the next event, if one comes soon.
bool HandleEvent() {
  @autoreleasepool {
    NSEvent *event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                        untilDate:[NSDate dateWithTimeIntervalSinceNow:0.02]
                                           inMode:NSDefaultRunLoopMode
                                          dequeue:YES];
    if (event == nil) return false;
    [NSApp sendEvent:event];
    return true;
  }
}

void HandleEventsUntil(const std::function<bool()> &done) {
  const double start = Now();
  while (!done()) {
    HandleEvent();
    if (Now() - start > kPatience) {
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

// Runs a command while the events that it causes are handled.
void Run(const std::vector<std::string> &command) {
  NSMutableArray *arguments = [NSMutableArray array];
  for (const std::string &word : command) {
    [arguments addObject:[NSString stringWithUTF8String:word.c_str()]];
  }
  NSTask *task = [NSTask launchedTaskWithLaunchPath:@"/usr/bin/env" arguments:arguments];
  HandleEventsUntil([task] { return ![task isRunning]; });
  EXPECT_EQ(0, [task terminationStatus]) << command[0] << " failed, or is missing";
  HandleEventsUntilSettled();
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

void RunMouse(std::initializer_list<Words> steps) {
  Words command = {"xdotool"};
  for (const Words &step : steps) command.insert(command.end(), step.begin(), step.end());
  Run(command);
}

const Words kMouseDown = {"mousedown", "1"};
const Words kMouseUp = {"mouseup", "1", "sleep", "0.1"};

Extensions LoadBuiltBundle() {
  Expected<Extensions> extensions = Extensions::Load(BINARY_DIRECTORY "/BackgroundNumbering.plugin");
  return std::move(*extensions);
}

}  // namespace

PanelOnScreen::PanelOnScreen(NSDictionary *settings, const char *printer)
    : ppd_(printer), extensions_(LoadBuiltBundle()) {
  PrintDialogJob job;
  Expected<PPDFile> ppd = PPDFile::Open(ppd_.path());
  job.ppd = std::move(*ppd);
  job.settings = EmptyPrintSettings();
  for (NSString *key in settings) {
    PMPrintSettingsSetValue(job.settings.get(), (CFStringRef)key, [settings objectForKey:key],
                            false);
  }
  dialog_ = std::make_unique<PrintDialog>(std::move(job), extensions_,
                                          PresetStore(presets_.path() / "presets", {}));
  dialog_->Open();
  panel_ = dialog_->session().panels().front()->panel();
  HandleEventsUntil([this] { return [window() isVisible] && [window() isKeyWindow]; });
  Run({"xdotool", "search", "--sync", "--onlyvisible", "--name", "^Print Settings$",
       "windowactivate", "--sync"});
}

PanelOnScreen::~PanelOnScreen() {
  dialog_.reset();
  HandleEventsUntilSettled();
}

NSString *PanelOnScreen::FocusedOutlet() const {
  NSResponder *focused = [window() firstResponder];
  for (NSString *outlet in @[
         @"functionValid", @"popUpSize", @"popUpDensity", @"popUpColor", @"textBoxStartNumber",
         @"stepperStartNumber", @"defaultButton"
       ]) {
    id control = (*this)[outlet];
    if (focused == control) return outlet;
    // A text box that is edited hands the focus to its field editor.
    if ([control respondsToSelector:@selector(currentEditor)] && focused != nil &&
        focused == [control currentEditor]) {
      return outlet;
    }
  }
  return nil;
}

void PanelOnScreen::Press(const std::vector<std::string> &keys) {
  for (const std::string &key : keys) Run({"xdotool", "key", key});
}

void PanelOnScreen::Type(const std::string &text) {
  for (char character : text) Run({"xdotool", "type", std::string(1, character)});
}

void PanelOnScreen::Paste(const std::string &text) {
  // The program that offers the text goes on in the background, perhaps before it offers it.
  Run({"sh", "-c",
       "printf %s \"$1\" | xclip -selection clipboard -loops 0 >/dev/null 2>&1\n"
       "for attempt in $(seq 100); do\n"
       "  [ \"$(timeout 1 xclip -selection clipboard -o 2>/dev/null)\" = \"$1\" ] && exit\n"
       "  sleep 0.05\n"
       "done\n"
       "exit 1\n",
       "sh", text});
  Run({"xdotool", "key", "ctrl+v"});
}

void PanelOnScreen::Click(NSView *view) { Click(view, [view bounds]); }

void PanelOnScreen::Click(NSView *view, NSRect part) { Hold(view, part, 0.08); }

void PanelOnScreen::Hold(NSView *view, NSRect part, double seconds) {
  RunMouse({MoveTo(view, part), kMouseDown, {"sleep", std::to_string(seconds)}, kMouseUp});
}

void PanelOnScreen::Drag(NSView *view, NSRect from, NSRect to) {
  RunMouse({MoveTo(view, from), kMouseDown, {"sleep", "0.3"}, MoveTo(view, to), kMouseUp});
}

void PanelOnScreen::FocusStartNumber() {
  for (int step = 0; step < 8 && ![FocusedOutlet() isEqual:@"textBoxStartNumber"]; ++step) {
    Press({"Tab"});
  }
  EXPECT_EQUAL_OBJECTS(@"textBoxStartNumber", FocusedOutlet());
}

NSDictionary *PanelOnScreen::SavedSettings() {
  EXPECT_TRUE([panel_ saveValuesAndReturnError:nullptr]);
  CFDictionaryRef settings = nullptr;
  PMPrintSettingsCopyAsDictionary(dialog_->session().settings(), &settings);
  return [(NSDictionary *)settings autorelease];
}

NSDictionary *NumberingFrom(NSString *start_number) {
  return @{@"VQBackgroundNumbering" : @"On", @"VQStartNumber" : start_number};
}

NSRect UpperHalf(NSView *view) {
  NSRect half, other;
  NSDivideRect([view bounds], &half, &other, [view bounds].size.height / 2,
               [view isFlipped] ? NSMinYEdge : NSMaxYEdge);
  return half;
}

NSRect LowerHalf(NSView *view) {
  NSRect half, other;
  NSDivideRect([view bounds], &half, &other, [view bounds].size.height / 2,
               [view isFlipped] ? NSMaxYEdge : NSMinYEdge);
  return half;
}
