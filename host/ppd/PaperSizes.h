// The sizes of the paper that a printer takes.

#ifndef HOST_PPD_PAPERSIZES_H
#define HOST_PPD_PAPERSIZES_H

#include <optional>
#include <string>

#include "host/ppd/PPDFile.h"

struct PaperSize {
  double width = 0;  // in points
  double height = 0;
};

// That of a choice of PageSize; none: the file does not say.
std::optional<PaperSize> PaperSizeOf(const PPDFile &ppd, const std::string &choice);

// A sheet for a choice of PageSize, also of a custom one, and what of it the printer cannot print
// on.
struct Paper {
  PaperSize size;
  double top = 0, bottom = 0, left = 0, right = 0;  // the margins, in points
};

// None: the file does not say.
std::optional<Paper> PaperOf(const PPDFile &ppd, const std::string &choice);

// The sizes besides those of the choices.
struct CustomPaperSizes {
  PaperSize least;
  PaperSize most;  // none of it: the printer decides
};

// None: the printer takes no others.
std::optional<CustomPaperSizes> CustomPaperSizesOf(const PPDFile &ppd);

#endif
