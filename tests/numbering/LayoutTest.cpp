#include "numbering/Layout.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numbering/Look.h"
#include "numbering/Outline.h"

using numbering::Bounds;
using numbering::Place;
using numbering::PlaceOf;

namespace {

// Where the number is, as shares of the page.
Bounds Extent(const char *digits, double width, double height, double size) {
  const Place place = PlaceOf(digits, width, height, size);
  const Bounds box = numbering::BoundsOf(digits, place.angle);
  return {(place.x + box.left * place.font_size) / width,
          (place.y + box.bottom * place.font_size) / height,
          (place.x + box.right * place.font_size) / width,
          (place.y + box.top * place.font_size) / height};
}

}  // namespace

TEST(Layout, NumbersAreInTheMiddleAndKeepAwayFromTheEdges) {
  for (const auto &[keyword, size] : numbering::kSizes) {
    for (const char *digits : {"1", "25", "777", "1000", "123456"}) {
      for (const double width : {100., 595., 842., 5000.}) {
        const Bounds box = Extent(digits, width, 842, size);
        SCOPED_TRACE(std::string(keyword) + " " + digits + " " + std::to_string(width));
        EXPECT_NEAR(box.left + box.right, 1, 1e-9);
        EXPECT_NEAR(box.bottom + box.top, 1, 1e-9);
        EXPECT_LE(box.width(), .9 + 1e-9);
        EXPECT_LE(box.height(), .9 + 1e-9);
      }
    }
  }
}

TEST(Layout, ShortNumbersAreUprightAndLongOnesFollowTheDiagonal) {
  EXPECT_EQ(PlaceOf("7", 595, 842, 1).angle, 0);
  EXPECT_NEAR(PlaceOf("1000", 595, 842, 1).angle, std::atan2(842, 595), 1e-9);
  EXPECT_EQ(PlaceOf("1000", 842, 100, 1).angle, 0);
}

TEST(Layout, SizeGoesWithTheShortSide) {
  EXPECT_NEAR(PlaceOf("7", 595, 842, 1).font_size, .7 * 595, 1e-9);
  EXPECT_NEAR(PlaceOf("7", 842, 595, .36).font_size, .7 * 595 * .36, 1e-9);
}

TEST(Layout, SizesOfNumbersThatThePaperLimitsDifferToo) {
  const double small = PlaceOf("1000", 595, 842, .36).font_size;
  const double medium = PlaceOf("1000", 595, 842, .64).font_size;
  const double large = PlaceOf("1000", 595, 842, 1).font_size;
  EXPECT_GT(medium, 1.2 * small);
  EXPECT_GT(large, 1.2 * medium);
}
