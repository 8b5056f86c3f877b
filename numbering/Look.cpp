#include "numbering/Look.h"

#include <algorithm>
#include <span>

namespace numbering {

std::vector<double> PaintOf(const Ink &ink, double density, bool over) {
  const double amount = std::min(1.0, ink.strength * density * (over ? kStripeStrength : 1));
  std::vector<double> paint;
  for (const double component : std::span(ink.rgb).first(ink.IsGray() ? 1 : 3)) {
    paint.push_back(1 - (1 - component) * amount);
  }
  return paint;
}

}  // namespace numbering
