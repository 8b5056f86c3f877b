#import "host/dialog/Controls.h"
#import "tests/gui/PanelOnScreen.h"
#import "tests/gui/Pixels.h"
#import "tests/gui/TextArea.h"
#import "tests/support/ObjCTest.h"

namespace {

// What the Web Content Accessibility Guidelines ask of texts, and of what shows a state.
const double kForTexts = 4.5;
const double kForStates = 3;

void CollectTexts(NSView *view, NSMutableArray *controls) {
  if ([view isHidden]) return;
  if ([view isKindOfClass:[NSControl class]] && TextOfControl((NSControl *)view) != nil) {
    [controls addObject:view];
  }
  for (NSView *subview in [view subviews]) CollectTexts(subview, controls);
}

// The controls of the window that show a text.
NSArray *Texts(NSWindow *window) {
  NSMutableArray *controls = [NSMutableArray array];
  CollectTexts([window contentView], controls);
  return controls;
}

double ContrastOf(NSControl *control) {
  // Without the edge of a text box or a button.
  const NSRect inside = NSInsetRect([control bounds], 3, 3);
  return ContrastOfText(PixelsOfView(control, NSIntersectionRect(inside, TextArea(control))));
}

// Around it too: that is where a focus is shown.
Pixels PixelsAround(NSView *control) {
  NSView *superview = [control superview];
  return PixelsOfView(superview, NSInsetRect([control frame], -4, -4));
}

void LoseFocus(NSWindow *window) {
  [window makeFirstResponder:nil];
  HandleEventsUntilSettled();
}

// How many pixels in and around a control change clearly when it gets the focus.
long PixelsThatShowTheFocus(NSWindow *window, NSView *control) {
  LoseFocus(window);
  const Pixels before = PixelsAround(control);
  EXPECT_TRUE([window makeFirstResponder:control]);
  HandleEventsUntilSettled();
  return CountDiffering(before, PixelsAround(control), kForStates);
}

}  // namespace

OBJC_TEST(Contrast, OfEveryTextIsEnoughToReadIt) {
  PanelOnScreen panel(NumberingFrom(@"25"));
  LoseFocus(panel.window());
  NSArray *texts = Texts(panel.window());
  EXPECT_LT(15u, [texts count]);
  for (NSControl *control in texts) {
    const double enough = [control isEnabled] ? kForTexts : kForStates;
    EXPECT_LE(enough, ContrastOf(control)) << Text(TextOfControl(control));
  }
}

OBJC_TEST(Contrast, OfEveryGreyedTextIsEnoughToKnowIt) {
  PanelOnScreen panel;
  LoseFocus(panel.window());
  for (NSString *outlet in @[
         @"labelSize", @"labelDensity", @"labelColor", @"labelStartNumber",
         @"labelStartNumberRange", @"popUpSize", @"popUpDensity", @"popUpColor",
         @"textBoxStartNumber", @"defaultButton"
       ]) {
    EXPECT_LE(kForStates, ContrastOf(panel[outlet])) << Text(outlet);
    EXPECT_GT(2 * kForTexts, ContrastOf(panel[outlet])) << Text(outlet) << " does not look gray";
  }
}

OBJC_TEST(Contrast, OfTheFocusIsEnoughOnEveryKindOfControl) {
  PanelOnScreen panel(NumberingFrom(@"25"));
  PrintDialogView *dialog = panel.dialog().view();
  for (NSView *control : std::initializer_list<NSView *>{
           panel[@"functionValid"], panel[@"popUpSize"], panel[@"textBoxStartNumber"],
           panel[@"defaultButton"], [dialog presets], [dialog copies], [dialog pages],
           [dialog panels], [dialog help], [dialog print]}) {
    const NSSize size = [control frame].size;
    EXPECT_LE(2 * (size.width + size.height), PixelsThatShowTheFocus(panel.window(), control))
        << Text(NSStringFromClass([control class])) << Text(NSStringFromRect([control frame]));
  }
  KeepPicture([panel.window() contentView], "focus");
}
