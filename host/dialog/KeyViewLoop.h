// How Tab walks through the dialog.

#ifndef HOST_DIALOG_KEYVIEWLOOP_H
#define HOST_DIALOG_KEYVIEWLOOP_H

#import <Cocoa/Cocoa.h>

#include <vector>

/// The views of a panel in the order of its own key view loop, which begins with the next key view
/// of the panel's view; where there is none, its controls from top to bottom and left to right.
std::vector<NSView *> KeyViewsOfPanel(NSView *panel);

/// Ties the views to a loop, in this order.
void LinkKeyViews(const std::vector<NSView *> &views);

#endif
