#include "host/dialog/WindowFitter.h"

#include "host/dialog/PlatformGeometry.h"

namespace {

// Of a window's content, so that all of the window is on the screen.
LayoutSize LargestContent(NSWindow *window) {
  NSScreen *screen = [window screen] != nil ? [window screen] : [NSScreen mainScreen];
  return SizeForLayout(
      [NSWindow contentRectForFrameRect:[screen visibleFrame] styleMask:[window styleMask]].size);
}

}  // namespace

WindowFitter::WindowFitter(NSWindow *window, PrintDialogView *view)
    : window_(Retained<NSWindow *>::Share(window)),
      view_(Retained<PrintDialogView *>::Share(view)),
      size_(SizeForLayout([view frame].size)) {}

bool WindowFitter::HasRoom() const {
  return SizeForLayout([view_.get() minSize]).width <= LargestContent(window_.get()).width;
}

void WindowFitter::Fit(NSSize panel) {
  NSWindow *window = window_.get();
  const LayoutSize limit = LargestContent(window);
  [view_.get() setPanelWidth:panel.width];
  const LayoutSize wanted = SizeForLayout([view_.get() sizeForPanelSize:panel]);
  const NSSize now = [view_.get() frame].size;
  const NSSize size = PlatformSize(size_.Next(wanted, SizeForLayout(now), limit));
  [window
      setContentMinSize:PlatformSize(Intersection(SizeForLayout([view_.get() minSize]), limit))];
  if (NSEqualSizes(size, now)) return;
  const NSPoint top_left = NSMakePoint(NSMinX([window frame]), NSMaxY([window frame]));
  [window setContentSize:size];
  [window setFrameTopLeftPoint:top_left];
}
