// A page as it is read, whatever its coordinates are.

#ifndef NUMBERING_PDF_PAGEFRAME_H
#define NUMBERING_PDF_PAGEFRAME_H

#include <array>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace numbering {

struct PageFrame {
  double width, height;  // in the page's unit, as the page is turned
  double unit;           // in points
  std::array<double, 6>
      matrix;  // from there, the origin at the left bottom, to the page's coordinates
};

// Of pages that do not say, or say nonsense, what viewers take.
PageFrame FrameOf(QPDFPageObjectHelper &page);

}  // namespace numbering

#endif
