#import "host/dialog/FocusRing.h"

#import "host/dialog/Focus.h"

namespace {

const CGFloat kDistance = 3;  // of the ring's outer edge from the control
const CGFloat kWidth = 2;

// Of a list, what it scrolls in.
NSView *FocusedControl(NSWindow *window) {
  NSView *focus = FocusedView(window);
  if (![focus isKindOfClass:[NSControl class]]) return nil;
  NSScrollView *scroll = [focus enclosingScrollView];
  return [scroll documentView] == focus ? scroll : focus;
}

}  // namespace

@implementation FocusRing

- (void)followFocusOfWindow:(NSWindow *)window {
  NSView *control = FocusedControl(window);
  NSView *superview = [control superview];
  if (superview == nil) {
    [self removeFromSuperview];
    return;
  }
  const NSRect frame = NSInsetRect([control frame], -kDistance, -kDistance);
  if ([self superview] == superview && NSEqualRects([self frame], frame)) return;
  // Where it was, which may be in another part of the window.
  [[self superview] setNeedsDisplayInRect:[self frame]];
  [self setFrame:frame];
  if ([self superview] != superview) {
    [superview addSubview:self positioned:NSWindowBelow relativeTo:nil];
  }
  [self setNeedsDisplay:YES];
}

- (void)drawRect:(NSRect)rect {
  (void)rect;
  [[NSColor keyboardFocusIndicatorColor] set];
  NSFrameRectWithWidth([self bounds], kWidth);
}

// Clicks beside the control are not the ring's.
- (NSView *)hitTest:(NSPoint)point {
  (void)point;
  return nil;
}

@end
