#import "host/dialog/Spinner.h"

#include <algorithm>
#include <cmath>

namespace {

const int kSpokes = 12;
const int kPollsPerStep = 4;
const CGFloat kInnerRadius = 0.5;  // of the outer one
const CGFloat kSpokeWidth = 2.5;

}  // namespace

@implementation Spinner

- (void)turnOrStop {
  const BOOL turns = [self window] != nil && ![self isHidden];
  if (turns == _turns) return;
  _turns = turns;
  if (!turns) {
    _turning = Poller();
    return;
  }
  _turning = Poller([self] {
    if (++_polls % kPollsPerStep == 0) [self turn];
    return false;
  });
}

- (void)turn {
  _step = (_step + 1) % kSpokes;
  [self setNeedsDisplay:YES];
}

- (void)viewDidMoveToWindow {
  [super viewDidMoveToWindow];
  [self turnOrStop];
}

- (void)setHidden:(BOOL)hidden {
  [super setHidden:hidden];
  [self turnOrStop];
}

- (void)drawRect:(NSRect)rect {
  (void)rect;
  const NSPoint center = NSMakePoint(NSMidX([self bounds]), NSMidY([self bounds]));
  const CGFloat outer = std::min(NSWidth([self bounds]), NSHeight([self bounds])) / 2 - kSpokeWidth;
  for (int spoke = 0; spoke < kSpokes; ++spoke) {
    const double angle = 2 * M_PI * spoke / kSpokes;
    const auto at = [&](CGFloat radius) {
      return NSMakePoint(center.x + radius * std::sin(angle), center.y + radius * std::cos(angle));
    };
    const int age = (_step - spoke + kSpokes) % kSpokes;
    [[NSColor colorWithCalibratedWhite:0.25 + 0.05 * age alpha:1] set];
    NSBezierPath *path = [NSBezierPath bezierPath];
    [path setLineWidth:kSpokeWidth];
    [path setLineCapStyle:NSRoundLineCapStyle];
    [path moveToPoint:at(outer * kInnerRadius)];
    [path lineToPoint:at(outer)];
    [path stroke];
  }
}

@end
