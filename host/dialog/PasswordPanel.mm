#import "host/dialog/PasswordPanel.h"

#include <algorithm>
#include <string>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"
#import "host/dialog/DialogWindow.h"

namespace {

const CGFloat kMargin = 20;
const CGFloat kWidth = 360;
const CGFloat kButtonWidth = 120;
const CGFloat kGap = 12;
enum { kNo, kYes };

std::string MessageOf(const PasswordQuestion &question) {
  const std::string reason = Text(Sentence(question.reason));
  return question.mistake.empty() ? reason : Text(Sentence(question.mistake)) + "\n\n" + reason;
}

NSSecureTextField *SecretBox() {
  NSSecureTextField *box = [[[NSSecureTextField alloc] initWithFrame:NSZeroRect] autorelease];
  [[box cell] setScrollable:YES];
  [[box cell] setWraps:NO];
  return box;
}

}  // namespace

@implementation PasswordPanel

@synthesize window = _window;

- (instancetype)initWithQuestion:(const PasswordQuestion &)question {
  self = [super init];
  if (self == nil) return nil;
  _view = [[FlippedView alloc] initWithFrame:NSMakeRect(0, 0, kWidth, 100)];
  _message = [Label(String(MessageOf(question))) retain];
  _userCaption = [Caption(Localized("User name")) retain];
  _user = [TextBox(nil) retain];
  [_user setStringValue:String(question.user)];
  _passwordCaption = [Caption(Localized("Password")) retain];
  _password = [SecretBox() retain];
  _ok = [PushButton(String(Localized("OK")), self, @selector(accept:)) retain];
  [_ok setKeyEquivalent:@"\r"];
  _cancel = [PushButton(String(Localized("Cancel")), self, @selector(cancel:)) retain];
  for (NSView *control in
       @[ _message, _userCaption, _user, _passwordCaption, _password, _cancel, _ok ]) {
    [_view addSubview:control];
  }
  [_user setNextKeyView:_password];
  [_password setNextKeyView:_cancel];
  [_cancel setNextKeyView:_ok];
  [_ok setNextKeyView:_user];
  _window = [[DialogWindow alloc] initWithTitle:String(Localized("Print")) view:_view resizable:NO];
  [_window setDelegate:self];
  [_window setInitialFirstResponder:_password];
  [self layOut];
  return self;
}

- (void)dealloc {
  [_window setDelegate:nil];
  for (id owned in @[
         _window, _view, _message, _userCaption, _user, _passwordCaption, _password, _ok, _cancel
       ]) {
    [owned release];
  }
  [super dealloc];
}

- (void)layOut {
  const CGFloat captions =
      std::ceil(std::max(WidthOfText(_userCaption), WidthOfText(_passwordCaption)));
  const CGFloat ok = WidthOfButton(_ok, kButtonWidth);
  const CGFloat cancel = WidthOfButton(_cancel, kButtonWidth);
  const CGFloat width = std::max({kWidth, captions + kGap + kWidth / 2, ok + kGap + cancel});
  CGFloat y = kMargin;
  const CGFloat height = HeightOfText(_message, width);
  [_message setFrame:NSMakeRect(kMargin, y, width, height)];
  y += height + kGap;
  const CGFloat left = kMargin + captions + kGap;
  for (NSArray *row in @[ @[ _userCaption, _user ], @[ _passwordCaption, _password ] ]) {
    [[row objectAtIndex:0] setFrame:NSMakeRect(kMargin, y + 3, captions, kLineHeight)];
    [[row objectAtIndex:1] setFrame:NSMakeRect(left, y, kMargin + width - left, kControlHeight)];
    y += kControlHeight + kGap;
  }
  y += kGap;
  [_ok setFrame:NSMakeRect(kMargin + width - ok, y, ok, kControlHeight + 2)];
  [_cancel
      setFrame:NSMakeRect(kMargin + width - ok - kGap - cancel, y, cancel, kControlHeight + 2)];
  [_window setContentSize:NSMakeSize(width + 2 * kMargin, y + kControlHeight + 2 + kMargin)];
}

- (std::optional<Login>)run {
  [_window center];
  [_window makeKeyAndOrderFront:nil];
  std::optional<Login> login;
  if ([NSApp runModalForWindow:_window] == kYes) {
    [_window makeFirstResponder:nil];
    login = Login{Text([_user stringValue]), Secret(Text([_password stringValue]))};
  }
  [_password setStringValue:@""];
  [_window orderOut:nil];
  return login;
}

- (void)accept:(id)sender {
  (void)sender;
  [NSApp stopModalWithCode:kYes];
}

- (void)cancel:(id)sender {
  (void)sender;
  [NSApp stopModalWithCode:kNo];
}

- (BOOL)windowShouldClose:(id)sender {
  [self cancel:sender];
  return NO;
}

@end
