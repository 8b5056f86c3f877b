// The shapes of digits.

#ifndef NUMBERING_OUTLINE_H
#define NUMBERING_OUTLINE_H

#include <cstddef>
#include <string_view>

namespace numbering {

struct Point {
  double x = 0, y = 0;
};

// Where a contour goes on from the point before.
struct Segment {
  enum Kind : char { Move, Line, Curve } kind;  // Curve: a quadratic one
  short x, y;
  short control_x, control_y;  // of a curve
  Point end() const { return {static_cast<double>(x), static_cast<double>(y)}; }
  Point control() const { return {static_cast<double>(control_x), static_cast<double>(control_y)}; }
};

class Outline {
 public:
  template <size_t size>
  constexpr Outline(const Segment (&segments)[size]) : begin_(segments), end_(segments + size) {}
  const Segment *begin() const { return begin_; }
  const Segment *end() const { return end_; }

 private:
  const Segment *begin_, *end_;
};

// In units of which kUnitsPerEm are the font size; all contours are closed.
struct Digit {
  int advance;
  Outline outline;
};
extern const int kUnitsPerEm;
extern const Digit kDigits[10];

inline const Digit &DigitOf(char character) { return kDigits[character - '0']; }

struct Bounds {
  double left, bottom, right, top;
  double width() const { return right - left; }
  double height() const { return top - bottom; }
};

// The least box around digits that begin at the origin and are turned by this angle, in radians,
// for font size 1.
Bounds BoundsOf(std::string_view digits, double angle);

}  // namespace numbering

#endif
