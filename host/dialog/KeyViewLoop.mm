#import "host/dialog/KeyViewLoop.h"

#include <algorithm>

namespace {

// Empty where the loop does not lead back to its start.
std::vector<NSView *> Loop(NSView *first) {
  std::vector<NSView *> views;
  for (NSView *view = first; view != nil; view = [view nextKeyView]) {
    if (view == first && !views.empty()) return views;
    if (std::find(views.begin(), views.end(), view) != views.end()) break;
    views.push_back(view);
  }
  return {};
}

void CollectControls(NSView *view, std::vector<NSView *> &controls) {
  const BOOL isControl =
      [view isKindOfClass:[NSControl class]] || [view isKindOfClass:[NSText class]];
  const BOOL isLabel =
      [view isKindOfClass:[NSTextField class]] && ![(NSTextField *)view isEditable];
  if (isControl && !isLabel && ![view isKindOfClass:[NSScroller class]]) controls.push_back(view);
  for (NSView *subview in [view subviews]) CollectControls(subview, controls);
}

}  // namespace

std::vector<NSView *> KeyViewsOfPanel(NSView *panel) {
  std::vector<NSView *> views = Loop([panel nextKeyView]);
  if (!views.empty()) return views;
  CollectControls(panel, views);
  const auto topLeft = [panel](NSView *view) {
    const NSRect frame = [panel convertRect:[view bounds] fromView:view];
    const CGFloat top = [panel isFlipped] ? NSMinY(frame) : -NSMaxY(frame);
    return std::make_pair(top, NSMinX(frame));
  };
  std::stable_sort(views.begin(), views.end(),
                   [&topLeft](NSView *a, NSView *b) { return topLeft(a) < topLeft(b); });
  return views;
}

void LinkKeyViews(const std::vector<NSView *> &views) {
  for (size_t i = 0; i < views.size(); ++i) {
    [views[i] setNextKeyView:views[(i + 1) % views.size()]];
  }
}
