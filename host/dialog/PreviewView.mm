#import "host/dialog/PreviewView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"

namespace {

const CGFloat kGap = 8;
const CGFloat kArrowWidth = 28;
const CGFloat kNumberWidth = 44;
const CGFloat kZoomWidth = 120;
const CGFloat kRow = kControlHeight + kGap;
const CGFloat kFocusRing = 4;  // around the last row

// As paths: not all fonts have such characters.
NSImage *Arrow(BOOL points_left) {
  constexpr CGFloat kSize = 12;
  NSImage *image = [[[NSImage alloc] initWithSize:NSMakeSize(kSize, kSize)] autorelease];
  [image lockFocus];
  NSBezierPath *path = [NSBezierPath bezierPath];
  const CGFloat tip = points_left ? 3 : kSize - 3, back = kSize - tip;
  [path moveToPoint:NSMakePoint(back, 1)];
  [path lineToPoint:NSMakePoint(tip, kSize / 2)];
  [path lineToPoint:NSMakePoint(back, kSize - 1)];
  [path setLineWidth:2];
  [[NSColor blackColor] set];
  [path stroke];
  [image unlockFocus];
  return image;
}

NSButton *ArrowButton(BOOL points_left, const std::string &tip) {
  NSButton *button = PushButton(@"", nil, nullptr);
  [button setImage:Arrow(points_left)];
  [button setImagePosition:NSImageOnly];
  [button setToolTip:String(tip)];
  return button;
}

}  // namespace

@implementation PreviewView

@synthesize canvas = _canvas;
@synthesize previous = _previous;
@synthesize next = _next;
@synthesize page = _page;
@synthesize zoom = _zoom;

- (instancetype)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self == nil) return nil;
  const auto add = [self](auto *view) {
    [self addSubview:view];
    return view;
  };
  _canvas = add([[[PreviewCanvas alloc] initWithFrame:NSZeroRect] autorelease]);
  _previous = add(ArrowButton(YES, Localized("Previous Page")));
  _page = add(TextBox(self));
  [_page setAlignment:NSRightTextAlignment];
  [_page setToolTip:String(Localized("Page"))];
  _count = add(Label(@""));
  [[_count cell] setWraps:NO];
  _next = add(ArrowButton(NO, Localized("Next Page")));
  _zoom = add(PopUpButton(nil, nullptr));
  [_zoom setToolTip:String(Localized("Size of the page in the preview"))];
  AddItem(_zoom, String(Localized("Whole Page")), nil);
  AddItem(_zoom, @"100 %", nil);
  [_zoom selectItemAtIndex:0];
  [self setCount:@""];
  return self;
}

- (BOOL)isFlipped {
  return YES;
}

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
  (void)oldSize;
  [self layOut];
}

- (void)setFrame:(NSRect)frame {
  [super setFrame:frame];
  [self layOut];
}

- (void)layOut {
  const NSSize size = [self bounds].size;
  const CGFloat canvas_height = std::max<CGFloat>(0, size.height - 2 * kRow - kFocusRing);
  [_canvas setFrame:NSMakeRect(0, 0, size.width, canvas_height)];
  CGFloat y = canvas_height + kGap;
  const CGFloat others = 2 * kArrowWidth + kNumberWidth + 3 * kGap;
  const CGFloat count_width = std::min(WidthOfText(_count), size.width - others);
  CGFloat x = std::max<CGFloat>(0, std::floor((size.width - others - count_width) / 2));
  [_previous setFrame:NSMakeRect(x, y, kArrowWidth, kControlHeight)];
  x += kArrowWidth + kGap;
  [_page setFrame:NSMakeRect(x, y, kNumberWidth, kControlHeight)];
  x += kNumberWidth + kGap / 2;
  [_count setFrame:NSMakeRect(x, y + 4, count_width, kLineHeight)];
  x += count_width + kGap;
  [_next setFrame:NSMakeRect(x, y, kArrowWidth, kControlHeight)];
  y += kRow;
  [_zoom setFrame:NSMakeRect(std::floor((size.width - kZoomWidth) / 2), y, kZoomWidth,
                             kControlHeight)];
  [self setNeedsDisplay:YES];
}

- (void)setGoTo:(std::function<void(int page)>)goTo {
  _goTo = std::move(goTo);
}

- (void)setPageNumber:(int)page {
  _shown = page;
  if ([_page currentEditor] == nil) [_page setIntValue:page];
}

- (void)controlTextDidChange:(NSNotification *)notification {
  (void)notification;
  const int page = [[_page stringValue] intValue];
  if (_goTo && page > 0) _goTo(page);
}

- (void)controlTextDidEndEditing:(NSNotification *)notification {
  (void)notification;
  if ([_page isEnabled]) [_page setIntValue:_shown];
}

- (void)setCount:(NSString *)text {
  [_count setStringValue:text];
  const BOOL knows = [text length] > 0;
  if (!knows) [_page setStringValue:@""];
  for (NSControl *control in @[ _page, _zoom ]) [control setEnabled:knows];
  if (!knows) {
    [_previous setEnabled:NO];
    [_next setEnabled:NO];
  }
  [self layOut];
}

- (std::vector<NSView *>)keyViews {
  return {_canvas, _previous, _page, _next, _zoom};
}

@end
