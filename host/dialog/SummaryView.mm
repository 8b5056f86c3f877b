#import "host/dialog/SummaryView.h"

#include <algorithm>

#import "host/dialog/Controls.h"

namespace {

const CGFloat kWidth = 500;
const CGFloat kTitleWidth = 190;
const CGFloat kValueLeft = kTitleWidth + 10;

}  // namespace

@implementation SummaryView

- (instancetype)initWithSections:(const std::vector<SummarySection> &)sections {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  CGFloat y = 8;
  for (const auto &[heading, lines] : sections) {
    NSTextField *label = Label(String(heading));
    [label setFont:[NSFont boldSystemFontOfSize:0]];
    [label setFrame:NSMakeRect(0, y, kWidth, kLineHeight)];
    [self addSubview:label];
    y += kLineHeight + 4;
    for (const auto &[title, value] : lines) {
      NSTextField *caption = Caption(title);
      NSTextField *text = Label(String(value));
      const CGFloat height =
          std::max(HeightOfText(caption, kTitleWidth), HeightOfText(text, kWidth - kValueLeft));
      [caption setFrame:NSMakeRect(0, y, kTitleWidth, height)];
      [text setFrame:NSMakeRect(kValueLeft, y, kWidth - kValueLeft, height)];
      [self addSubview:caption];
      [self addSubview:text];
      y += height + 2;
    }
    y += 8;
  }
  [self setFrameSize:NSMakeSize(kWidth, y)];
  return self;
}

- (BOOL)isFlipped {
  return YES;
}

@end
