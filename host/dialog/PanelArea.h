// The part of the print dialog that shows one panel at a time.

#ifndef HOST_DIALOG_PANELAREA_H
#define HOST_DIALOG_PANELAREA_H

#import <Cocoa/Cocoa.h>

#include <vector>

/// A panel that is larger than the area scrolls.
@interface PanelArea : NSScrollView {
  std::vector<NSView *> _panelKeyViews;
}

/// The panel's view, nil: none. The one before gets its own key view loop back. The focus must not
/// be in it.
- (void)setPanelView:(NSView *)view;
- (NSView *)panelView;

/// The views of the panel through which Tab walks, in this order.
- (std::vector<NSView *>)panelKeyViews;
/// Whether the focus is in the panel.
- (BOOL)panelHasFocus;
/// Puts the panel in its place, after its size or that of the area has changed.
- (void)placePanel;

@end

#endif
