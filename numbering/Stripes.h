// Digits as stripes, for numbers over a page.

#ifndef NUMBERING_STRIPES_H
#define NUMBERING_STRIPES_H

#include <vector>

#include "numbering/Outline.h"

namespace numbering {

struct Stripe {
  Point begin, end;
};

// The parts of parallel lines that lie within a digit, in its own units: lines in this direction
// (in radians), so far from one another.
std::vector<Stripe> StripesOf(const Digit &digit, double direction, double distance);

}  // namespace numbering

#endif
