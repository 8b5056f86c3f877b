// Where a panel stands in its area, which scrolls where it is too small.

#ifndef HOST_DIALOG_PANELPLACEMENT_H
#define HOST_DIALOG_PANELPLACEMENT_H

#include "host/dialog/LayoutGeometry.h"

struct PanelPlacement {
  bool scrolls_vertically = false;
  bool scrolls_horizontally = false;
  LayoutSize content;  // what is scrolled: the panel, or what can be seen where that is larger
  double panel_left = 0;
};

// Centered, at the top. Scrollers take room from what can be seen.
PanelPlacement PlacePanel(LayoutSize panel, LayoutSize area, double scroller_width);

#endif
