// Sizes and rectangles in points for layouts that are computed without the platform. The y axis
// runs downwards.

#ifndef HOST_DIALOG_LAYOUTGEOMETRY_H
#define HOST_DIALOG_LAYOUTGEOMETRY_H

#include <algorithm>

inline constexpr double kControlHeight = 24;
inline constexpr double kLineHeight = 18;

struct LayoutSize {
  double width = 0;
  double height = 0;

  friend bool operator==(const LayoutSize &, const LayoutSize &) = default;
};

struct LayoutRect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double right() const { return x + width; }
  double bottom() const { return y + height; }
  friend bool operator==(const LayoutRect &, const LayoutRect &) = default;
};

// The smallest size that holds both.
inline LayoutSize Union(LayoutSize one, LayoutSize other) {
  return {std::max(one.width, other.width), std::max(one.height, other.height)};
}

// The largest size that fits into both.
inline LayoutSize Intersection(LayoutSize one, LayoutSize other) {
  return {std::min(one.width, other.width), std::min(one.height, other.height)};
}

#endif
