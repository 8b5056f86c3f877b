#include "numbering/Outline.h"

#include <gtest/gtest.h>

#include <numbers>

using numbering::Bounds;
using numbering::BoundsOf;

TEST(Outline, DigitsAreAsHighAsThoseOfTheFont) {
  for (const char *digit : {"0", "1", "4", "8"}) {
    const Bounds box = BoundsOf(digit, 0);
    EXPECT_NEAR(box.top, .7, .02) << digit;
    EXPECT_NEAR(box.bottom, -.005, .01) << digit;
    EXPECT_LT(box.width(), .556) << digit;
  }
}

TEST(Outline, DigitsStandSideBySide) {
  const Bounds one = BoundsOf("8", 0), two = BoundsOf("88", 0);
  EXPECT_NEAR(two.right - one.right, 1139. / 2048, 1e-9);
  EXPECT_EQ(two.left, one.left);
}

TEST(Outline, BoundsTurnWithTheDigits) {
  const Bounds upright = BoundsOf("42", 0);
  const Bounds turned = BoundsOf("42", std::numbers::pi / 2);
  EXPECT_NEAR(turned.width(), upright.height(), 1e-9);
  EXPECT_NEAR(turned.height(), upright.width(), 1e-9);
  EXPECT_NEAR(turned.left, -upright.top, 1e-9);
}

// Of a round digit, whose extremes are points of its curves when it stands upright only.
TEST(Outline, BoundsAreThoseOfTheCurvesNotOfTheirControls) {
  const Bounds turned = BoundsOf("0", std::numbers::pi / 4);
  const double diagonal =
      (BoundsOf("0", 0).width() + BoundsOf("0", 0).height()) / std::numbers::sqrt2;
  EXPECT_LT(turned.width(), .9 * diagonal);
  EXPECT_GT(turned.width(), .7 * diagonal);
}
