#include "host/dialog/PanelPlacement.h"

#include <gtest/gtest.h>

namespace {

constexpr double kScroller = 18;

PanelPlacement Placed(LayoutSize panel) { return PlacePanel(panel, {560, 200}, kScroller); }

}  // namespace

TEST(PanelPlacement, CentersAPanelThatFits) {
  const PanelPlacement placement = Placed({501, 100});
  EXPECT_FALSE(placement.scrolls_vertically);
  EXPECT_FALSE(placement.scrolls_horizontally);
  EXPECT_EQ(29, placement.panel_left) << "on a whole point";
  EXPECT_EQ((LayoutSize{560, 200}), placement.content) << "clicks beside it are its area's";
}

TEST(PanelPlacement, ScrollsWhatIsTooHighOrTooWide) {
  const PanelPlacement high = Placed({500, 300});
  EXPECT_TRUE(high.scrolls_vertically);
  EXPECT_FALSE(high.scrolls_horizontally);
  EXPECT_EQ((LayoutSize{560 - kScroller, 300}), high.content);
  EXPECT_EQ(21, high.panel_left);
  const PanelPlacement wide = Placed({600, 100});
  EXPECT_FALSE(wide.scrolls_vertically);
  EXPECT_TRUE(wide.scrolls_horizontally);
  EXPECT_EQ((LayoutSize{600, 200 - kScroller}), wide.content);
  EXPECT_EQ(0, wide.panel_left);
}

TEST(PanelPlacement, ScrollsSidewaysWhereTheOtherScrollerTakesTheRoom) {
  const PanelPlacement placement = Placed({550, 300});
  EXPECT_TRUE(placement.scrolls_vertically);
  EXPECT_TRUE(placement.scrolls_horizontally);
  EXPECT_EQ((LayoutSize{550, 300}), placement.content);
  EXPECT_EQ(0, placement.panel_left);
}

TEST(PanelPlacement, DoesNotScrollAPanelThatJustFits) {
  const PanelPlacement placement = Placed({560, 200});
  EXPECT_FALSE(placement.scrolls_vertically);
  EXPECT_FALSE(placement.scrolls_horizontally);
}
