#include "numbering/Stripes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace numbering {

namespace {

constexpr int kPartsOfCurve = 8;

// A point by the direction of the stripes: along them, and across.
struct Turned {
  double along, across;
};

struct Edge {
  Turned begin, end;
};

class Direction {
 public:
  explicit Direction(double angle) : cosine_(std::cos(angle)), sine_(std::sin(angle)) {}
  Turned To(Point point) const {
    return {point.x * cosine_ + point.y * sine_, point.y * cosine_ - point.x * sine_};
  }
  Point Back(Turned point) const {
    return {point.along * cosine_ - point.across * sine_,
            point.along * sine_ + point.across * cosine_};
  }

 private:
  double cosine_, sine_;
};

std::vector<Edge> EdgesOf(const Digit &digit, const Direction &direction) {
  std::vector<Edge> edges;
  Point first, last;
  const auto add = [&](Point next) {
    edges.push_back({direction.To(last), direction.To(next)});
    last = next;
  };
  for (const Segment &segment : digit.outline) {
    if (segment.kind == Segment::Move) {
      add(first);
      first = last = segment.end();
    } else if (segment.kind == Segment::Line) {
      add(segment.end());
    } else {
      const Point begin = last, control = segment.control(), end = segment.end();
      for (int part = 1; part <= kPartsOfCurve; ++part) {
        const double at = static_cast<double>(part) / kPartsOfCurve, left = 1 - at;
        add({left * left * begin.x + 2 * left * at * control.x + at * at * end.x,
             left * left * begin.y + 2 * left * at * control.y + at * at * end.y});
      }
    }
  }
  add(first);
  return edges;
}

}  // namespace

std::vector<Stripe> StripesOf(const Digit &digit, double direction, double distance) {
  const Direction turned(direction);
  const std::vector<Edge> edges = EdgesOf(digit, turned);
  const auto across = [](const Edge &edge) { return edge.end.across; };
  const double most = across(*std::ranges::max_element(edges, {}, across));
  std::vector<Stripe> stripes;
  std::vector<std::pair<double, int>> crossings;  // where, and which way
  double line = std::ceil(across(*std::ranges::min_element(edges, {}, across)) / distance);
  for (; line * distance < most; ++line) {
    const double height = line * distance;
    crossings.clear();
    for (const auto &[begin, end] : edges) {
      if ((begin.across <= height) == (end.across <= height)) continue;
      const double at = (height - begin.across) / (end.across - begin.across);
      crossings.emplace_back(begin.along + at * (end.along - begin.along),
                             begin.across <= height ? 1 : -1);
    }
    std::ranges::sort(crossings);
    int winding = 0;
    double begin = 0;
    for (const auto &[along, way] : crossings) {
      if (winding == 0) begin = along;
      winding += way;
      if (winding == 0)
        stripes.push_back({turned.Back({begin, height}), turned.Back({along, height})});
    }
  }
  return stripes;
}

}  // namespace numbering
