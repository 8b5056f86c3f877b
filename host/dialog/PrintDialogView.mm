#import "host/dialog/PrintDialogView.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#import "host/dialog/Controls.h"
#import "host/dialog/KeyViewLoop.h"

#include "host/base/Localized.h"

namespace {

const CGFloat kMargin = 20;
const CGFloat kGap = 8;
const CGFloat kCaptionWidth = 76;  // this and what follows: or wider, as the texts need
const CGFloat kNumberWidth = 56;
const CGFloat kStepperWidth = 16;
const CGFloat kPagesCaptionWidth = 64;
const CGFloat kPagesWidth = 110;
const CGFloat kButtonWidth = 96;
const CGFloat kButtonHeight = 26;
const CGFloat kSmallestArea = 96;
const CGFloat kSmallestWidth = 560;
const CGFloat kTallestInfo = 3 * kLineHeight;
const CGFloat kRow = kControlHeight + kGap;
const CGFloat kFooter = kMargin + kButtonHeight + 16;

NSTextField *Notices() {
  NSTextField *notices = Label(@"");
  [notices setDrawsBackground:YES];
  [notices setBackgroundColor:[NSColor colorWithCalibratedRed:1 green:0.96 blue:0.80 alpha:1]];
  [notices setBordered:YES];
  [notices setHidden:YES];
  return notices;
}

NSBox *Line() {
  NSBox *line = [[[NSBox alloc] initWithFrame:NSZeroRect] autorelease];
  [line setBoxType:NSBoxSeparator];
  return line;
}

}  // namespace

@implementation PrintDialogView

@synthesize printers = _printers;
@synthesize printerInfo = _printerInfo;
@synthesize presets = _presets;
@synthesize copies = _copies;
@synthesize copiesStepper = _copiesStepper;
@synthesize pages = _pages;
@synthesize panels = _panels;
@synthesize help = _help;
@synthesize cancel = _cancel;
@synthesize print = _print;

- (instancetype)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self == nil) return nil;
  _notices = [Notices() retain];
  _printerCaption = [Caption(Localized("Printer")) retain];
  _printers = [PopUpButton(nil, nullptr) retain];
  _printerInfo = [Label(@"") retain];
  [_printerInfo setTextColor:[NSColor colorWithCalibratedWhite:0.35 alpha:1]];
  _presetCaption = [Caption(Localized("Presets")) retain];
  _presets = [PopUpButton(nil, nullptr) retain];
  _copiesCaption = [Caption(Localized("Copies")) retain];
  _copies = [TextBox(nil) retain];
  _copiesStepper = [[NSStepper alloc] initWithFrame:NSZeroRect];
  [_copiesStepper setMinValue:1];
  [_copiesStepper setMaxValue:9999];
  [_copiesStepper setValueWraps:NO];
  [_copiesStepper setIntValue:1];
  _pagesCaption = [Caption(Localized("Pages")) retain];
  _pages = [TextBox(nil) retain];
  _pagesHint = [Label(String(Localized("such as 1-3, 5; empty: all"))) retain];
  [_pagesHint setTextColor:[_printerInfo textColor]];
  _leftLine = [Line() retain];
  _rightLine = [Line() retain];
  _panels = [PopUpButton(nil, nullptr) retain];
  _area = [[NSScrollView alloc] initWithFrame:NSZeroRect];
  [_area setBorderType:NSNoBorder];
  [_area setDrawsBackground:NO];
  _lowerLine = [Line() retain];
  _help = [PushButton(@"?", nil, nullptr) retain];
  [_help setToolTip:String(Localized("Help"))];
  _progressText = [Label(@"") retain];
  [[_progressText cell] setWraps:NO];
  _progress = [[NSProgressIndicator alloc] initWithFrame:NSZeroRect];
  [_progress setIndeterminate:NO];
  [_progress setMinValue:0];
  [_progress setMaxValue:1];
  [_progress setHidden:YES];
  _cancel = [PushButton(String(Localized("Cancel")), nil, nullptr) retain];
  _print = [PushButton(String(Localized("Print")), nil, nullptr) retain];
  [_print setKeyEquivalent:@"\r"];
  for (NSView *view in @[
         _notices,       _printerCaption, _printers,      _printerInfo,  _presetCaption, _presets,
         _copiesCaption, _copies,         _copiesStepper, _pagesCaption, _pages,         _pagesHint,
         _leftLine,      _rightLine,      _panels,        _area,         _lowerLine,     _help,
         _progressText,  _progress,       _cancel,        _print
       ]) {
    [self addSubview:view];
  }
  return self;
}

- (void)dealloc {
  for (NSView *view : std::initializer_list<NSView *>{
           _notices, _printerCaption, _printers, _printerInfo,   _presetCaption,
           _presets, _copiesCaption,  _copies,   _copiesStepper, _pagesCaption,
           _pages,   _pagesHint,      _leftLine, _rightLine,     _panels,
           _area,    _lowerLine,      _help,     _progressText,  _progress,
           _cancel,  _print}) {
    [view release];
  }
  [super dealloc];
}

- (BOOL)isFlipped {
  return YES;
}

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
  (void)oldSize;
  [self layOut];
}

- (CGFloat)noticesHeightForWidth:(CGFloat)width {
  if ([_notices isHidden]) return 0;
  return HeightOfText(_notices, width - 2 * kMargin) + 6;
}

- (CGFloat)infoHeightForWidth:(CGFloat)width {
  const CGFloat height = HeightOfText(_printerInfo, width - kMargin - [self controlsLeft]);
  return std::clamp(height, kLineHeight, kTallestInfo);
}

// Of everything above the panel area, in this width.
- (CGFloat)headerHeightForWidth:(CGFloat)width {
  const CGFloat notices = [self noticesHeightForWidth:width];
  return kMargin + (notices > 0 ? notices + kGap : 0) + kRow + [self infoHeightForWidth:width] +
         3 * kRow + 2 * kGap;
}

- (CGFloat)captionWidth {
  CGFloat width = kCaptionWidth;
  for (NSTextField *caption in @[ _printerCaption, _presetCaption, _copiesCaption ]) {
    width = std::max(width, WidthOfText(caption));
  }
  return width;
}

- (CGFloat)controlsLeft {
  return kMargin + [self captionWidth] + kGap;
}

- (CGFloat)pagesCaptionWidth {
  return std::max(kPagesCaptionWidth, WidthOfText(_pagesCaption));
}

- (CGFloat)buttonWidth {
  return std::max(WidthOfButton(_cancel, kButtonWidth), WidthOfButton(_print, kButtonWidth));
}

// Of the row of copies and pages, the longest one.
- (CGFloat)smallestWidth {
  const CGFloat width = [self controlsLeft] + kNumberWidth + 2 + kStepperWidth + kGap +
                        [self pagesCaptionWidth] + kGap + kPagesWidth + kGap +
                        WidthOfText(_pagesHint) + kMargin;
  return std::max(kSmallestWidth, width);
}

- (NSSize)sizeForPanelSize:(NSSize)size {
  const CGFloat width = std::max([self smallestWidth], size.width + 2 * kMargin);
  return NSMakeSize(
      width, [self headerHeightForWidth:width] + std::max(size.height, kSmallestArea) + kFooter);
}

- (NSSize)minSize {
  return [self sizeForPanelSize:NSMakeSize(0, kSmallestArea)];
}

- (void)layOut {
  const NSSize size = [self bounds].size;
  const CGFloat right = size.width - kMargin;
  const CGFloat captionWidth = [self captionWidth];
  const CGFloat controlsLeft = [self controlsLeft];
  const CGFloat buttonWidth = [self buttonWidth];
  CGFloat y = kMargin;
  if (const CGFloat height = [self noticesHeightForWidth:size.width]; height > 0) {
    [_notices setFrame:NSMakeRect(kMargin, y, right - kMargin, height)];
    y += height + kGap;
  }
  const auto captionAt = [&y](NSTextField *caption, CGFloat left, CGFloat width) {
    [caption setFrame:NSMakeRect(left, y + 4, width, kLineHeight)];
  };

  captionAt(_printerCaption, kMargin, captionWidth);
  [_printers setFrame:NSMakeRect(controlsLeft, y, right - controlsLeft, kControlHeight)];
  y += kControlHeight + 4;
  const CGFloat infoHeight = [self infoHeightForWidth:size.width];
  [_printerInfo setFrame:NSMakeRect(controlsLeft, y, right - controlsLeft, infoHeight)];
  y += infoHeight + kGap - 4;
  y += kGap;
  captionAt(_presetCaption, kMargin, captionWidth);
  [_presets setFrame:NSMakeRect(controlsLeft, y, right - controlsLeft, kControlHeight)];
  y += kRow;
  captionAt(_copiesCaption, kMargin, captionWidth);
  CGFloat x = controlsLeft;
  [_copies setFrame:NSMakeRect(x, y, kNumberWidth, kControlHeight)];
  x += kNumberWidth + 2;
  [_copiesStepper setFrame:NSMakeRect(x, y, kStepperWidth, kControlHeight)];
  x += kStepperWidth + kGap;
  const CGFloat pagesCaptionWidth = [self pagesCaptionWidth];
  captionAt(_pagesCaption, x, pagesCaptionWidth);
  x += pagesCaptionWidth + kGap;
  [_pages setFrame:NSMakeRect(x, y, kPagesWidth, kControlHeight)];
  x += kPagesWidth + kGap;
  captionAt(_pagesHint, x, right - x);
  y += kRow + kGap;

  const CGFloat panelsWidth = std::min(280.0, right - kMargin);
  const CGFloat panelsLeft = std::floor((size.width - panelsWidth) / 2);
  const CGFloat middle = y + kControlHeight / 2;
  [_panels setFrame:NSMakeRect(panelsLeft, y, panelsWidth, kControlHeight)];
  const CGFloat lineWidth = panelsLeft - kGap;
  [_leftLine setFrame:NSMakeRect(0, middle, lineWidth, 1)];
  [_rightLine setFrame:NSMakeRect(size.width - lineWidth, middle, lineWidth, 1)];
  y += kControlHeight + kGap;

  const CGFloat bottom = size.height - kFooter;
  [_area setFrame:NSMakeRect(0, y, size.width, std::max(0.0, bottom - y))];
  [self placePanelView];

  [_lowerLine setFrame:NSMakeRect(0, bottom, size.width, 1)];
  y = size.height - kMargin - kButtonHeight;
  [_print setFrame:NSMakeRect(right - buttonWidth, y, buttonWidth, kButtonHeight)];
  x = right - 2 * buttonWidth - 12;
  [_cancel setFrame:NSMakeRect(x, y, buttonWidth, kButtonHeight)];
  [_help setFrame:NSMakeRect(kMargin, y, kButtonHeight, kButtonHeight)];
  const CGFloat left = kMargin + kButtonHeight + kGap;
  const BOOL bar = ![_progress isHidden];
  [_progressText setFrame:NSMakeRect(left, y + (bar ? -6 : 5), x - kGap - left, kLineHeight)];
  [_progress setFrame:NSMakeRect(left, y + 14, x - kGap - left, 12)];
  [self setNeedsDisplay:YES];
}

// Centered, at the top.
- (void)placePanelView {
  NSView *view = [self panelView];
  if (view == nil) return;
  const NSSize size = [view frame].size;
  NSSize area = [_area frame].size;
  // Hiding them automatically does not end: each takes the room that keeps the other.
  const BOOL tall = size.height > area.height;
  if (tall) area.width -= [NSScroller scrollerWidth];
  const BOOL wide = size.width > area.width;
  if (wide) area.height -= [NSScroller scrollerWidth];
  [_area setHasVerticalScroller:tall];
  [_area setHasHorizontalScroller:wide];
  [[_area documentView] setFrameSize:NSMakeSize(std::max(size.width, area.width),
                                                std::max(size.height, area.height))];
  [view setFrameOrigin:NSMakePoint(std::floor(std::max(0.0, area.width - size.width) / 2), 0)];
}

- (NSView *)panelView {
  NSArray *views = [[_area documentView] subviews];
  return [views count] == 0 ? nil : [views objectAtIndex:0];
}

- (void)moveFocusOutOfPanel {
  id focus = [[self window] firstResponder];
  // A field editor stands for the control that it edits.
  if ([focus isKindOfClass:[NSText class]] && [focus isFieldEditor]) focus = [focus delegate];
  if ([self panelView] == nil || ![focus isKindOfClass:[NSView class]] ||
      ![focus isDescendantOf:[self panelView]]) {
    return;
  }
  [[self window] makeFirstResponder:_panels];
}

- (void)setPanelView:(NSView *)view {
  if (view == [self panelView] && view != nil) return;
  [self moveFocusOutOfPanel];
  // The panel gets its own loop back: it may be shown by another dialog next.
  LinkKeyViews(_panelKeyViews);
  _panelKeyViews.clear();
  [[self panelView] removeFromSuperview];
  NSView *content = nil;
  if (view != nil) {
    _panelKeyViews = KeyViewsOfPanel(view);
    content = [[[FlippedView alloc] initWithFrame:NSZeroRect] autorelease];
    [content addSubview:view];
  }
  [_area setDocumentView:content];
  [self layOut];
  [self linkKeyViews];
  [[_area contentView] scrollToPoint:NSZeroPoint];
}

- (void)setPrinterInfo:(NSString *)text {
  [_printerInfo setStringValue:text];
  [self layOut];
}

- (void)setNotices:(NSString *)text {
  [_notices setStringValue:text];
  [_notices setHidden:[text length] == 0];
  [self layOut];
}

- (void)setProgressText:(NSString *)text fraction:(double)fraction {
  [_progressText setStringValue:text];
  [_progress setHidden:fraction < 0];
  if (fraction >= 0) [_progress setDoubleValue:fraction];
  [self layOut];
}

- (void)linkKeyViews {
  std::vector<NSView *> chain = {_printers, _presets, _copies, _pages, _panels};
  chain.insert(chain.end(), _panelKeyViews.begin(), _panelKeyViews.end());
  chain.insert(chain.end(), {_help, _cancel, _print});
  LinkKeyViews(chain);
}

@end
