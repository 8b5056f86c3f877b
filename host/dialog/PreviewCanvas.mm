#import "host/dialog/PreviewCanvas.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#import "host/dialog/Controls.h"

namespace {

const CGFloat kDesk = 8;  // around the page
const CGFloat kStep = 40;

NSBitmapImageRep *BitmapOf(const PagePicture &picture) {
  NSBitmapImageRep *bitmap =
      [[[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                               pixelsWide:picture.size.width
                                               pixelsHigh:picture.size.height
                                            bitsPerSample:8
                                          samplesPerPixel:3
                                                 hasAlpha:NO
                                                 isPlanar:NO
                                           colorSpaceName:NSCalibratedRGBColorSpace
                                              bytesPerRow:3 * picture.size.width
                                             bitsPerPixel:24] autorelease];
  std::memcpy([bitmap bitmapData], picture.samples.data(), picture.samples.size());
  return bitmap;
}

}  // namespace

@implementation PreviewCanvas

- (instancetype)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self == nil) return nil;
  _sentence = Label(@"");
  [_sentence setAlignment:NSCenterTextAlignment];
  [_sentence setTextColor:[NSColor colorWithCalibratedWhite:0.2 alpha:1]];
  [self addSubview:_sentence];
  return self;
}

- (void)dealloc {
  [_picture release];
  [super dealloc];
}

- (BOOL)acceptsFirstResponder {
  return YES;
}

- (BOOL)isFlipped {
  return YES;
}

- (BOOL)isOpaque {
  return YES;
}

- (void)setTurn:(std::function<void(PageTurn turn)>)turn {
  _turn = std::move(turn);
}

- (void)setPicture:(NSBitmapImageRep *)picture sentence:(NSString *)sentence {
  [_picture autorelease];
  _picture = [picture retain];
  [_sentence setStringValue:sentence];
  [self placeSentence];
  [self setNeedsDisplay:YES];
}

- (void)showPicture:(const PagePicture &)picture {
  [self setPicture:BitmapOf(picture) sentence:@""];
  _scrolled = NSZeroPoint;
}

- (void)showSentence:(NSString *)sentence {
  [self setPicture:nil sentence:sentence];
}

- (BOOL)hasPicture {
  return _picture != nil;
}

- (CGFloat)scale {
  const NSSize pixels = [self convertSize:NSMakeSize(100, 100) toView:nil];
  return std::max<CGFloat>(0.5, std::abs(pixels.width) / 100);
}

- (PixelSize)roomInPixels {
  const NSSize size = [self bounds].size;
  const CGFloat scale = [self scale];
  const auto pixels = [scale](CGFloat points) {
    return std::max(16, static_cast<int>((points - 2 * kDesk) * scale));
  };
  return {pixels(size.width), pixels(size.height)};
}

- (void)setFrameSize:(NSSize)size {
  [super setFrameSize:size];
  [self placeSentence];
}

- (void)placeSentence {
  const NSSize size = [self bounds].size;
  const CGFloat width = std::max<CGFloat>(40, size.width - 4 * kDesk);
  const CGFloat height = HeightOfText(_sentence, width);
  [_sentence setFrame:NSMakeRect(2 * kDesk, std::floor((size.height - height) / 2), width, height)];
}

- (NSSize)pictureSize {
  const CGFloat scale = [self scale];
  return NSMakeSize([_picture pixelsWide] / scale, [_picture pixelsHigh] / scale);
}

- (NSSize)hidden {
  const NSSize picture = [self pictureSize], room = [self bounds].size;
  return NSMakeSize(std::max<CGFloat>(0, picture.width + 2 * kDesk - room.width),
                    std::max<CGFloat>(0, picture.height + 2 * kDesk - room.height));
}

- (NSRect)pageRect {
  const NSSize room = [self bounds].size, size = [self pictureSize];
  const CGFloat x = std::max<CGFloat>(kDesk, std::floor((room.width - size.width) / 2));
  const CGFloat y = std::max<CGFloat>(kDesk, std::floor((room.height - size.height) / 2));
  return NSMakeRect(x - _scrolled.x, y - _scrolled.y, size.width, size.height);
}

- (void)drawRect:(NSRect)rect {
  [[NSColor colorWithCalibratedWhite:0.80 alpha:1] set];
  NSRectFill([self bounds]);
  if (_picture == nil) return;
  const NSRect page = [self pageRect];
  [[NSColor colorWithCalibratedWhite:0.62 alpha:1] set];
  NSRectFill(NSOffsetRect(page, 2, 2));
  [[NSColor colorWithCalibratedWhite:0.45 alpha:1] set];
  NSRectFill(NSInsetRect(page, -1, -1));
  [_picture drawInRect:page
              fromRect:NSZeroRect
             operation:NSCompositeCopy
              fraction:1
        respectFlipped:YES
                 hints:nil];
}

// Answers whether there was something more to see of the page.
- (BOOL)scrollBy:(NSSize)points {
  const NSPoint before = _scrolled;
  const NSSize hidden = [self hidden];
  _scrolled.x = std::clamp<CGFloat>(_scrolled.x + points.width, 0, hidden.width);
  _scrolled.y = std::clamp<CGFloat>(_scrolled.y + points.height, 0, hidden.height);
  if (NSEqualPoints(_scrolled, before)) return NO;
  [self setNeedsDisplay:YES];
  return YES;
}

- (void)turn:(PageTurn)turn {
  if (_turn) _turn(turn);
}

- (void)goDown:(CGFloat)points {
  if ([self scrollBy:NSMakeSize(0, points)]) return;
  [self turn:points > 0 ? PageTurn::kNext : PageTurn::kPrevious];
}

- (void)goRight:(CGFloat)points {
  if ([self scrollBy:NSMakeSize(points, 0)]) return;
  [self turn:points > 0 ? PageTurn::kNext : PageTurn::kPrevious];
}

- (void)scrollWheel:(NSEvent *)event {
  if ([event deltaY] != 0) [self goDown:[event deltaY] < 0 ? kStep : -kStep];
}

- (void)mouseDown:(NSEvent *)event {
  [[self window] makeFirstResponder:self];
  _dragged = [event locationInWindow];
}

- (void)mouseDragged:(NSEvent *)event {
  const NSPoint at = [event locationInWindow];
  // The window's points run upwards.
  [self scrollBy:NSMakeSize(_dragged.x - at.x, at.y - _dragged.y)];
  _dragged = at;
}

- (void)keyDown:(NSEvent *)event {
  NSString *characters = [event characters];
  const CGFloat view = [self bounds].size.height - 2 * kDesk;
  switch ([characters length] > 0 ? [characters characterAtIndex:0] : 0) {
    case NSLeftArrowFunctionKey:
      return [self goRight:-kStep];
    case NSRightArrowFunctionKey:
      return [self goRight:kStep];
    case NSUpArrowFunctionKey:
      return [self goDown:-kStep];
    case NSDownArrowFunctionKey:
      return [self goDown:kStep];
    case NSPageUpFunctionKey:
      return [self goDown:-view];
    case NSPageDownFunctionKey:
      return [self goDown:view];
    case NSHomeFunctionKey:
      return [self turn:PageTurn::kFirst];
    case NSEndFunctionKey:
      return [self turn:PageTurn::kLast];
    default:
      return [super keyDown:event];
  }
}

@end
