#include "host/dialog/PanelPlacement.h"

#include <cmath>

PanelPlacement PlacePanel(LayoutSize panel, LayoutSize area, double scroller_width) {
  PanelPlacement placement;
  placement.scrolls_vertically = panel.height > area.height;
  if (placement.scrolls_vertically) area.width -= scroller_width;
  placement.scrolls_horizontally = panel.width > area.width;
  if (placement.scrolls_horizontally) area.height -= scroller_width;
  placement.content = Union(panel, area);
  placement.panel_left = std::floor(std::max(0.0, area.width - panel.width) / 2);
  return placement;
}
