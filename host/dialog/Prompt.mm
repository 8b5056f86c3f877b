#import "host/dialog/Prompt.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Retained.h"
#import "host/dialog/Controls.h"
#import "host/dialog/DialogWindow.h"

namespace {

const CGFloat kMargin = 20;
const CGFloat kWidth = 400;
const CGFloat kButtonWidth = 120;
const CGFloat kGap = 12;
enum { kNo, kYes };

}  // namespace

@interface Prompt : NSObject <NSWindowDelegate> {
  DialogWindow *_window;
  NSView *_view;
  NSTextField *_message;
  NSTextField *_box;
  NSButton *_yes;
  NSButton *_no;
}
@end

@implementation Prompt

- (instancetype)initWithMessage:(NSString *)message
                           text:(NSString *)text
                            yes:(NSString *)yes
                             no:(NSString *)no {
  self = [super init];
  if (self == nil) return nil;
  _view = [[FlippedView alloc] initWithFrame:NSMakeRect(0, 0, kWidth, 100)];
  _message = [Label(message) retain];
  [_view addSubview:_message];
  if (text != nil) {
    _box = [TextBox(nil) retain];
    [_box setStringValue:text];
    [_view addSubview:_box];
  }
  _yes = [PushButton(yes, self, @selector(answerYes:)) retain];
  [_yes setKeyEquivalent:@"\r"];
  [_view addSubview:_yes];
  if (no != nil) {
    _no = [PushButton(no, self, @selector(answerNo:)) retain];
    [_view addSubview:_no];
  }
  _window = [[DialogWindow alloc] initWithTitle:String(Localized("Print")) view:_view resizable:NO];
  [_window setDelegate:self];
  [self layOut];
  NSView *first = _box != nil ? (NSView *)_box : _yes;
  [_box setNextKeyView:_no != nil ? _no : _yes];
  [_no setNextKeyView:_yes];
  [_yes setNextKeyView:_box != nil ? (NSView *)_box : _no];
  [_window setInitialFirstResponder:first];
  return self;
}

- (void)dealloc {
  [_window setDelegate:nil];
  [_window release];
  [_view release];
  [_message release];
  [_box release];
  [_yes release];
  [_no release];
  [super dealloc];
}

- (void)layOut {
  CGFloat buttons = WidthOfButton(_yes, kButtonWidth);
  if (_no != nil) buttons += kGap + WidthOfButton(_no, kButtonWidth);
  const CGFloat width = std::max(kWidth - 2 * kMargin, buttons);
  CGFloat y = kMargin;
  const CGFloat height = HeightOfText(_message, width);
  [_message setFrame:NSMakeRect(kMargin, y, width, height)];
  y += height + kGap;
  if (_box != nil) {
    [_box setFrame:NSMakeRect(kMargin, y, width, kControlHeight)];
    y += kControlHeight + kGap;
  }
  y += kGap;
  CGFloat right = kMargin + width;
  for (NSButton *button : {_yes, _no}) {
    if (button == nil) continue;
    const CGFloat wanted = WidthOfButton(button, kButtonWidth);
    right -= wanted;
    [button setFrame:NSMakeRect(right, y, wanted, kControlHeight + 2)];
    right -= kGap;
  }
  [_window setContentSize:NSMakeSize(width + 2 * kMargin, y + kControlHeight + 2 + kMargin)];
}

- (void)setMessage:(NSString *)message {
  [_message setStringValue:message];
  [self layOut];
}

- (void)setReturnAnswersNo {
  [_yes setKeyEquivalent:@""];
  [_no setKeyEquivalent:@"\r"];
  [_window setInitialFirstResponder:_no];
}

- (NSString *)text {
  [_window makeFirstResponder:nil];
  return [_box stringValue];
}

- (BOOL)run {
  [_window center];
  [_window makeKeyAndOrderFront:nil];
  if (_box != nil) [_box selectText:nil];
  const NSInteger answer = [NSApp runModalForWindow:_window];
  return answer == kYes;
}

- (void)close {
  [_window orderOut:nil];
}

- (void)answerYes:(id)sender {
  (void)sender;
  [NSApp stopModalWithCode:kYes];
}

- (void)answerNo:(id)sender {
  (void)sender;
  [NSApp stopModalWithCode:kNo];
}

- (BOOL)windowShouldClose:(id)sender {
  [self answerNo:sender];
  return NO;
}

@end

namespace {

Retained<Prompt *> MakePrompt(NSString *message, NSString *text, NSString *yes, NSString *no) {
  return Retained<Prompt *>::Adopt([[Prompt alloc] initWithMessage:message
                                                              text:text
                                                               yes:yes
                                                                no:no]);
}

}  // namespace

bool Ask(const std::string &message, const std::string &yes, const std::string &no) {
  Retained<Prompt *> prompt = MakePrompt(String(message), nil, String(yes), String(no));
  const bool answer = [prompt.get() run];
  [prompt.get() close];
  return answer;
}

bool AskBeforeLoss(const std::string &message, const std::string &yes, const std::string &no) {
  Retained<Prompt *> prompt = MakePrompt(String(message), nil, String(yes), String(no));
  [prompt.get() setReturnAnswersNo];
  const bool answer = [prompt.get() run];
  [prompt.get() close];
  return answer;
}

void Tell(const std::string &message) {
  Retained<Prompt *> prompt = MakePrompt(String(message), nil, String(Localized("OK")), nil);
  [prompt.get() run];
  [prompt.get() close];
}

std::optional<std::string> AskForText(
    const std::string &message, const std::string &text, const std::string &yes,
    const std::function<Expected<void>(const std::string &)> &check) {
  Retained<Prompt *> prompt =
      MakePrompt(String(message), String(text), String(yes), String(Localized("Cancel")));
  std::optional<std::string> answer;
  while ([prompt.get() run]) {
    answer = Text([prompt.get() text]);
    const Expected<void> checked = check(*answer);
    if (checked) break;
    answer.reset();
    [prompt.get() setMessage:Sentence(checked.message())];
  }
  [prompt.get() close];
  return answer;
}
