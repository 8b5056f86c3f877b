#import "host/dialog/PanelArea.h"

#import "host/dialog/Controls.h"
#import "host/dialog/Focus.h"
#import "host/dialog/KeyViewLoop.h"
#include "host/dialog/PanelPlacement.h"
#include "host/dialog/PlatformGeometry.h"

@implementation PanelArea

- (instancetype)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self == nil) return nil;
  [self setBorderType:NSNoBorder];
  [self setDrawsBackground:NO];
  return self;
}

- (NSView *)panelView {
  NSArray *views = [[self documentView] subviews];
  return [views count] == 0 ? nil : [views objectAtIndex:0];
}

- (void)setPanelView:(NSView *)view {
  // It may be shown by another dialog next.
  LinkKeyViews(_panelKeyViews);
  _panelKeyViews.clear();
  [[self panelView] removeFromSuperview];
  NSView *content = nil;
  if (view != nil) {
    _panelKeyViews = KeyViewsOfPanel(view);
    content = [[[FlippedView alloc] initWithFrame:NSZeroRect] autorelease];
    [content addSubview:view];
  }
  [self setDocumentView:content];
  [self placePanel];
  [[self contentView] scrollToPoint:NSZeroPoint];
}

- (std::vector<NSView *>)panelKeyViews {
  return _panelKeyViews;
}

- (BOOL)panelHasFocus {
  NSView *panel = [self panelView];
  return panel != nil && [FocusedView([self window]) isDescendantOf:panel];
}

- (void)placePanel {
  NSView *panel = [self panelView];
  if (panel == nil) return;
  const PanelPlacement placement =
      PlacePanel(SizeForLayout([panel frame].size), SizeForLayout([self frame].size),
                 [NSScroller scrollerWidth]);
  // Hiding them automatically does not end: each takes the room that keeps the other.
  [self setHasVerticalScroller:placement.scrolls_vertically];
  [self setHasHorizontalScroller:placement.scrolls_horizontally];
  [[self documentView] setFrameSize:PlatformSize(placement.content)];
  [panel setFrameOrigin:NSMakePoint(placement.panel_left, 0)];
}

@end
