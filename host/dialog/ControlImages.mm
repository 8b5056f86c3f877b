#include "host/dialog/ControlImages.h"

#import <Cocoa/Cocoa.h>

#include <initializer_list>

namespace {

const NSSize kSize = {15, 15};

NSColor *Ink() { return [NSColor colorWithCalibratedWhite:0.35 alpha:1]; }

void DrawBox(NSColor *filling, NSColor *edge) {
  NSBezierPath *box = [NSBezierPath bezierPathWithRoundedRect:NSMakeRect(1.5, 1.5, 12, 12)
                                                      xRadius:2
                                                      yRadius:2];
  [filling set];
  [box fill];
  [edge set];
  [box stroke];
}

void DrawLine(NSColor *color, CGFloat width, std::initializer_list<NSPoint> points) {
  NSBezierPath *line = [NSBezierPath bezierPath];
  [line moveToPoint:*points.begin()];
  for (const NSPoint *point = points.begin() + 1; point != points.end(); ++point) {
    [line lineToPoint:*point];
  }
  [line setLineWidth:width];
  [line setLineCapStyle:NSRoundLineCapStyle];
  [line setLineJoinStyle:NSRoundLineJoinStyle];
  [color set];
  [line stroke];
}

}  // namespace

/// Draws each picture when it is shown.
@interface ControlPainter : NSObject
@end

@implementation ControlPainter

- (void)drawUnchecked:(NSCustomImageRep *)representation {
  (void)representation;
  DrawBox([NSColor whiteColor], Ink());
}

- (void)drawChecked:(NSCustomImageRep *)representation {
  (void)representation;
  NSColor *const accent = [NSColor colorWithCalibratedRed:0.10 green:0.35 blue:0.75 alpha:1];
  DrawBox(accent, accent);
  const std::initializer_list<NSPoint> mark = {{4.3, 7.6}, {6.7, 5.1}, {10.8, 10.2}};
  DrawLine([NSColor whiteColor], 2, mark);
}

- (void)drawArrow:(NSCustomImageRep *)representation {
  (void)representation;
  DrawLine(Ink(), 1.6, {{3.5, 9.2}, {7.5, 5.4}, {11.5, 9.2}});
}

@end

void UseLightControlImages() {
  // The pictures never go, and neither does their painter.
  static ControlPainter *const painter = [[ControlPainter alloc] init];
  static NSMutableArray *const images = [[NSMutableArray alloc] init];
  struct Picture {
    SEL draw;
    NSString *name;
  };
  const Picture pictures[] = {
      {@selector(drawUnchecked:), @"GSSwitch"},
      {@selector(drawChecked:), @"GSSwitchSelected"},
      {@selector(drawArrow:), @"common_Nibble"},
  };
  for (const Picture &picture : pictures) {
    NSImage *image = [[NSImage alloc] initWithSize:kSize];
    NSCustomImageRep *representation = [[NSCustomImageRep alloc] initWithDrawSelector:picture.draw
                                                                             delegate:painter];
    [representation setSize:kSize];
    [image addRepresentation:representation];
    [representation release];
    [image setName:picture.name];
    [images addObject:image];
    [image release];
  }
}
