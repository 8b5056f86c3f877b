#import <objc/runtime.h>

#include <algorithm>

#include "platform/Implementation.h"
#include "tests/fuzz/Outcome.h"
#import "tests/fuzz/Panel.h"
#include "tests/fuzz/Targets.h"
#include "tests/fuzz/Texts.h"

namespace fuzz {

namespace {

constexpr int kLeast = 1;
constexpr int kGreatest = 999;

std::string DigitsIn(NSString *text) {
  std::string digits;
  for (NSUInteger at = 0; at < [text length]; ++at) {
    const unichar unit = [text characterAtIndex:at];
    if (unit >= u'0' && unit <= u'9') digits += static_cast<char>(unit);
  }
  return digits;
}

// The number of the digits, within the range; the platform looks at the first twenty.
std::string NumberOf(std::string digits) {
  digits = digits.substr(0, 20);
  const std::string number = digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
  if (number.size() > 3) return std::to_string(kGreatest);
  return std::to_string(std::clamp(std::atoi(number.c_str()), kLeast, kGreatest));
}

std::string Compare(const char *what, const std::string &expected, NSString *actual) {
  const char *text = [actual UTF8String];
  if (text != nullptr && expected == text) return "";
  return std::string(what) + " is " + (text == nullptr ? "nil" : text) + ", expected " + expected;
}

// What the handler makes of the text in the box.
std::string Handled(NSString *text) {
  velmoraBNViewControllerRV2 *controller = LoadedPanel().controller();
  const std::string digits = DigitsIn(text);
  std::string finding = Compare("the digits", digits, [controller BNVCDigitString:text]);
  if (!finding.empty()) return finding;
  [controller.textBoxStartNumber setStringValue:@"1"];
  LoadedPanel().Type(text);
  NSString *shown = [controller.textBoxStartNumber stringValue];
  const NSInteger number = [shown integerValue];
  if (number < kLeast || number > kGreatest) return Compare("the number", "in range", shown);
  finding = Compare("the number", std::to_string(number), shown);
  if (!finding.empty()) return finding;
  return Compare("the stepper", std::to_string(number),
                 [controller.stepperStartNumber stringValue]);
}

id NoPasteboard(id, SEL, NSString *) { return nil; }

// What is selected is offered to other programs, by way of a server that has no part in this.
void OfferNoSelections() {
  method_setImplementation(
      class_getClassMethod([NSPasteboard class], @selector(pasteboardWithName:)),
      ImplementationBy(NoPasteboard));
}

NSWindow *WindowOfPanel() {
  static NSWindow *window = [] {
    OfferNoSelections();
    NSView *view = LoadedPanel().controller().view;
    NSWindow *made = [[NSWindow alloc] initWithContentRect:[view frame]
                                                 styleMask:NSTitledWindowMask
                                                   backing:NSBackingStoreBuffered
                                                     defer:NO];
    [made setContentView:view];
    [made orderFront:nil];
    return made;
  }();
  return window;
}

// What comes of the text as the box's field editor takes it.
std::string Edited(NSString *text) {
  velmoraBNTextBoxRV2 *box = LoadedPanel().controller().textBoxStartNumber;
  [box setEnabled:YES];
  [box setStringValue:@"1"];
  if (![WindowOfPanel() makeFirstResponder:box]) return "the box does not take the focus";
  NSText *editor = [box currentEditor];
  if (editor == nil) return "the box has no editor";
  [editor setSelectedRange:NSMakeRange(0, [[editor string] length])];
  [editor insertText:text];
  const std::string expected = NumberOf(DigitsIn(text));
  std::string finding = Compare("the text of the editor", expected, [box stringValue]);
  [WindowOfPanel() makeFirstResponder:nil];
  if (finding.empty()) finding = Compare("the text of the box", expected, [box stringValue]);
  return finding;
}

std::string Run(NSString *text) {
  std::string finding = Handled(text);
  // Laying out a text takes longer than all the rest.
  constexpr NSUInteger kLongestToEdit = 200;
  if (finding.empty() && [text length] <= kLongestToEdit) finding = Edited(text);
  return finding;
}

}  // namespace

std::string TryTyping(std::string_view text) {
  return Outcome([text] { return Run(TextOfBytes(text)); });
}

}  // namespace fuzz
