#include "host/dialog/FittedSize.h"

#include <cmath>

namespace {

// What is scaled to the screen and back may come back with a rounding error.
bool IsSame(LayoutSize one, LayoutSize other) {
  constexpr double kRounding = 0.01;
  return std::abs(one.width - other.width) < kRounding &&
         std::abs(one.height - other.height) < kRounding;
}

}  // namespace

LayoutSize FittedSize::Next(LayoutSize wanted, LayoutSize now, LayoutSize limit) {
  const LayoutSize size = Intersection(wanted, limit);
  fitted_ = IsSame(now, fitted_) ? size : Union(size, now);
  return fitted_;
}
