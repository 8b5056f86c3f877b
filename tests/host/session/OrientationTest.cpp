#include "host/session/panels/Orientation.h"

#include <gtest/gtest.h>

TEST(Orientation, IsAskedForUnderTwoNames) {
  EXPECT_EQ("", OrientationOf({}));
  EXPECT_EQ("4", OrientationOf({{"landscape", ""}}));
  EXPECT_EQ("3", OrientationOf({{"landscape", "false"}}));
  EXPECT_EQ("5", OrientationOf({{"orientation-requested", "5"}}));
  EXPECT_EQ("6", OrientationOf({{"orientation-requested", "reverse-portrait"}}));
}

TEST(Orientation, IsLandscapeByAQuarterTurnEitherWay) {
  for (const char *turned : {"4", "5", "landscape", "reverse-landscape"}) {
    EXPECT_TRUE(IsLandscape({{"orientation-requested", turned}})) << turned;
  }
  for (const char *upright : {"3", "6", "portrait", "reverse-portrait", ""}) {
    EXPECT_FALSE(IsLandscape({{"orientation-requested", upright}})) << upright;
  }
}
