#include "numbering/Outline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace numbering {

namespace {

constexpr double kFar = std::numeric_limits<double>::infinity();

class Extent {
 public:
  void Take(double value) {
    least_ = std::min(least_, value);
    most_ = std::max(most_, value);
  }
  // All of a quadratic curve.
  void TakeCurve(double begin, double control, double end) {
    Take(end);
    const double bend = begin - 2 * control + end;
    if (bend == 0) return;
    const double at = (begin - control) / bend;
    if (at <= 0 || at >= 1) return;
    const double left = 1 - at;
    Take(left * left * begin + 2 * left * at * control + at * at * end);
  }
  double least() const { return least_; }
  double most() const { return most_; }

 private:
  double least_ = kFar, most_ = -kFar;
};

}  // namespace

Bounds BoundsOf(std::string_view digits, double angle) {
  const double along = std::cos(angle) / kUnitsPerEm, across = std::sin(angle) / kUnitsPerEm;
  Extent x, y;
  double pen = 0;
  for (const char character : digits) {
    const Digit &digit = DigitOf(character);
    const auto turned = [&](Point point) {
      point.x += pen;
      return Point{point.x * along - point.y * across, point.x * across + point.y * along};
    };
    Point begin;
    for (const Segment &segment : digit.outline) {
      const Point end = turned(segment.end());
      const Point control = segment.kind == Segment::Curve ? turned(segment.control()) : end;
      if (segment.kind == Segment::Move) begin = end;
      x.TakeCurve(begin.x, control.x, end.x);
      y.TakeCurve(begin.y, control.y, end.y);
      begin = end;
    }
    pen += digit.advance;
  }
  return {x.least(), y.least(), x.most(), y.most()};
}

}  // namespace numbering
