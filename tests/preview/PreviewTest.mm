// The preview in the dialog, worked with keys and the mouse.

#include <gmock/gmock.h>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/Interpreter.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/RawPdf.h"

using testing::HasSubstr;
using testing::Not;

namespace {

// Of the numbers, if they are red.
bool IsRed(Color color) { return color.red > color.green + 40; }

std::string ThreePages() {
  std::vector<RawPage> pages;
  for (int page = 1; page <= 3; ++page) {
    pages.push_back({"BT /F 60 Tf 100 600 Td (Page " + std::to_string(page) + ") Tj ET"});
  }
  return RawPdf(pages);
}

class Seen : public TemporaryFolder {
 public:
  explicit Seen(DialogOptions options = {}) : screen_(With(std::move(options))) {
    screen_.AwaitReady();
  }
  DialogOnScreen &screen() { return screen_; }
  PreviewView *preview() {
    for (NSView *view in [screen_.view() subviews]) {
      if ([view isKindOfClass:[PreviewView class]]) return (PreviewView *)view;
    }
    return nil;
  }
  Picture Page() {
    NSBitmapImageRep *bitmap = [NSBitmapImageRep imageRepWithData:PictureOfView([preview() canvas])];
    std::string ppm = "P6\n" + std::to_string([bitmap pixelsWide]) + ' ' +
                      std::to_string([bitmap pixelsHigh]) + "\n255\n";
    for (NSInteger y = 0; y < [bitmap pixelsHigh]; ++y) {
      for (NSInteger x = 0; x < [bitmap pixelsWide]; ++x) {
        NSUInteger samples[5] = {};
        [bitmap getPixel:samples atX:x y:y];
        for (int at = 0; at < 3; ++at) ppm += static_cast<char>(samples[at]);
      }
    }
    return Picture(ppm);
  }
  double Red() { return Page().ShareOf(IsRed); }
  void Await(const std::function<bool()> &done) { HandleEventsUntil(done); }
  void AwaitPicture() {
    HandleEventsUntil([this] { return [[preview() canvas] hasPicture]; });
  }
  void AwaitCount(const std::string &text) { screen_.AwaitText(text); }
  id outlet(NSString *name) {
    return Outlet(screen_.session().panels().front()->panel(), name);
  }
  void SwitchOn() {
    [screen_.dialog().window() makeFirstResponder:outlet(@"functionValid")];
    PressKeys({"space"});
    screen_.Choose(outlet(@"popUpColor"), @"Red");
  }
  std::string ValueOf(const char *key) { return *screen_.session().Value(key); }

 private:
  DialogOptions With(DialogOptions options) {
    options.preview = true;
    options.document = Write("three.pdf", ThreePages());
    return options;
  }

  DialogOnScreen screen_;
};

}  // namespace

OBJC_TEST(Preview, FollowsWhatIsChosenBeforeItIsTheJobs) {
  Seen seen;
  seen.AwaitCount("of 3 pages, 3 sheets");
  EXPECT_EQ(seen.Red(), 0);
  seen.SwitchOn();
  seen.Await([&seen] { return seen.Red() > 0.01; });
  EXPECT_GT(seen.Red(), 0.01);
  EXPECT_NE(seen.ValueOf("VQBackgroundNumbering"), "On");
  KeepPicture(seen.screen().view(), "preview");
}

OBJC_TEST(Preview, FollowsDigitsThatAreTyped) {
  Seen seen;
  seen.SwitchOn();
  seen.Await([&seen] { return seen.Red() > 0.01; });
  const double one = seen.Red();
  [seen.screen().dialog().window() makeFirstResponder:seen.outlet(@"startNumber")];
  TypeText("888");
  seen.Await([&] { return seen.Red() > 1.5 * one; });
  EXPECT_GT(seen.Red(), 1.5 * one);
}
