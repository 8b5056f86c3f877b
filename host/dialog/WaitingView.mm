#import "host/dialog/WaitingView.h"

#include <algorithm>

#import "host/dialog/Controls.h"

#include "host/base/Localized.h"

namespace {

const CGFloat kHeight = 150;
const CGFloat kSpinnerSize = 32;
const CGFloat kTop = 40;
const CGFloat kButtonWidth = 110;

}  // namespace

@implementation WaitingView

@synthesize retry = _retry;

- (instancetype)initWithWidth:(CGFloat)width {
  self = [super initWithFrame:NSMakeRect(0, 0, width, kHeight)];
  if (self == nil) return nil;
  _spinner = [[Spinner alloc] initWithFrame:NSZeroRect];
  [self addSubview:_spinner];
  _message = [Label(@"") retain];
  [_message setAlignment:NSCenterTextAlignment];
  [self addSubview:_message];
  _retry = [PushButton(String(Localized("Try Again")), nil, nullptr) retain];
  [self addSubview:_retry];
  [self setNextKeyView:_retry];
  [_retry setNextKeyView:_retry];
  return self;
}

- (void)dealloc {
  [_spinner release];
  [_message release];
  [_retry release];
  [super dealloc];
}

- (BOOL)isFlipped {
  return YES;
}

- (void)show:(NSString *)message waiting:(BOOL)waiting {
  [_message setStringValue:message];
  [_spinner setHidden:!waiting];
  [_retry setHidden:waiting];
  [_retry setKeyEquivalent:waiting ? @"" : @"\r"];
  const CGFloat width = [self bounds].size.width;
  const CGFloat height = HeightOfText(_message, width);
  CGFloat y = waiting ? kTop + kSpinnerSize + 12 : kTop - 12;
  [_spinner setFrame:NSMakeRect((width - kSpinnerSize) / 2, kTop, kSpinnerSize, kSpinnerSize)];
  [_message setFrame:NSMakeRect(0, y, width, height)];
  y += height + 14;
  const CGFloat retryWidth = WidthOfButton(_retry, kButtonWidth);
  [_retry setFrame:NSMakeRect((width - retryWidth) / 2, y, retryWidth, kControlHeight + 2)];
  [self setNeedsDisplay:YES];
}

- (void)showWaiting:(NSString *)message {
  [self show:message waiting:YES];
}

- (void)showFailure:(NSString *)message {
  [self show:message waiting:NO];
}

@end
