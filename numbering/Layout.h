// Where on a page its number stands.

#ifndef NUMBERING_LAYOUT_H
#define NUMBERING_LAYOUT_H

#include <string_view>

namespace numbering {

struct Place {
  double font_size;  // in the unit of the page's width and height
  double angle;      // in radians, against the clock
  double x, y;       // where the first digit begins, from the left and from the bottom
};

// In the middle, upright or along the diagonal, whichever makes it larger. Size: of kSizes. The
// page has a width and a height, the digits are one at least.
Place PlaceOf(std::string_view digits, double width, double height, double size);

}  // namespace numbering

#endif
