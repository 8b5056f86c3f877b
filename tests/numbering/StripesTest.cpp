#include "numbering/Stripes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using numbering::Digit;
using numbering::Segment;
using numbering::Stripe;
using numbering::StripesOf;

namespace {

constexpr double kRising = std::numbers::pi / 4;

double Length(const Stripe &stripe) {
  return std::hypot(stripe.end.x - stripe.begin.x, stripe.end.y - stripe.begin.y);
}

double Area(const Digit &digit, double direction, double distance) {
  double area = 0;
  for (const Stripe &stripe : StripesOf(digit, direction, distance)) {
    area += Length(stripe) * distance;
  }
  return area;
}

// A square with a square hole.
constexpr Segment kFrame[] = {{Segment::Move, 0, 0, 0, 0},     {Segment::Line, 0, 100, 0, 0},
                              {Segment::Line, 100, 100, 0, 0}, {Segment::Line, 100, 0, 0, 0},
                              {Segment::Move, 25, 25, 0, 0},   {Segment::Line, 75, 25, 0, 0},
                              {Segment::Line, 75, 75, 0, 0},   {Segment::Line, 25, 75, 0, 0}};

}  // namespace

TEST(Stripes, FillTheShapeAndLeaveItsHoleFree) {
  const Digit frame = {100, kFrame};
  for (const double direction : {0., kRising, 2., -1.}) {
    EXPECT_NEAR(Area(frame, direction, .7), 7500, 100) << direction;
  }
}

TEST(Stripes, RunInTheirDirectionAtTheirDistance) {
  const std::vector<Stripe> stripes = StripesOf(numbering::DigitOf('8'), kRising, 30);
  ASSERT_GT(stripes.size(), 30u);
  for (const auto &[begin, end] : stripes) {
    EXPECT_NEAR(std::atan2(end.y - begin.y, end.x - begin.x), kRising, 1e-6);
    const double across = (begin.y - begin.x) / std::numbers::sqrt2 / 30;
    EXPECT_NEAR(across, std::round(across), 1e-6);
  }
}

TEST(Stripes, CoverTheSameWhateverTheirDirection) {
  for (char digit = '0'; digit <= '9'; ++digit) {
    const double across = Area(numbering::DigitOf(digit), 0, 5);
    EXPECT_GT(across, 200000) << digit;
    EXPECT_NEAR(Area(numbering::DigitOf(digit), 1, 5), across, .01 * across) << digit;
  }
}
