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
  if (!IsSame(now, fitted_)) chosen_ = now;
  fitted_ = Union(Intersection(wanted, limit), chosen_);
  return fitted_;
}
