#import "tests/gui/PanelOnScreen.h"

#include "host/presets/Ticket.h"
#import "tests/support/ObjCTest.h"

namespace {

Extensions LoadBuiltBundle() {
  Expected<Extensions> extensions =
      Extensions::Load(BINARY_DIRECTORY "/BackgroundNumbering.plugin");
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
  Activate("Print Settings");
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

void PanelOnScreen::Press(const std::vector<std::string> &keys) { PressKeys(keys); }

void PanelOnScreen::Type(const std::string &text) { TypeText(text); }

void PanelOnScreen::Paste(const std::string &text) {
  // The program that offers the text goes on in the background, perhaps before it offers it.
  RunOnScreen({"sh", "-c",
               "printf %s \"$1\" | xclip -selection clipboard -loops 0 >/dev/null 2>&1\n"
               "for attempt in $(seq 1000); do\n"
               "  [ \"$(timeout 1 xclip -selection clipboard -o 2>/dev/null)\" = \"$1\" ] && exit\n"
               "  sleep 0.05\n"
               "done\n"
               "exit 1\n",
               "sh", text});
  RunOnScreen({"xdotool", "key", "ctrl+v"});
}

void PanelOnScreen::Click(NSView *view) { Click(view, [view bounds]); }

void PanelOnScreen::Click(NSView *view, NSRect part) { Hold(view, part, 0.08); }

void PanelOnScreen::Hold(NSView *view, NSRect part, double seconds) {
  HoldMouse(view, part, seconds);
}

void PanelOnScreen::Drag(NSView *view, NSRect from, NSRect to) { DragMouse(view, from, to); }

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
