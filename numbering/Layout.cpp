#include "numbering/Layout.h"

#include <algorithm>
#include <cmath>

#include "numbering/Look.h"
#include "numbering/Outline.h"

namespace numbering {

namespace {

Place PlaceAt(double angle, std::string_view digits, double width, double height, double size) {
  const Bounds box = BoundsOf(digits, angle);
  const double fitting =
      kLargestExtent * std::min(width / box.width(), height / box.height()) * std::sqrt(size);
  const double font_size = std::min(fitting, kLargestFontSize * std::min(width, height) * size);
  return {font_size, angle, (width - (box.left + box.right) * font_size) / 2,
          (height - (box.bottom + box.top) * font_size) / 2};
}

}  // namespace

Place PlaceOf(std::string_view digits, double width, double height, double size) {
  const Place upright = PlaceAt(0, digits, width, height, size);
  const Place diagonal = PlaceAt(std::atan2(height, width), digits, width, height, size);
  return upright.font_size >= diagonal.font_size ? upright : diagonal;
}

}  // namespace numbering
