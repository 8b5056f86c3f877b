// The PPD file of a printer that numbers its pages.

#ifndef TESTS_SUPPORT_NUMBERINGPPD_H
#define TESTS_SUPPORT_NUMBERINGPPD_H

#include <string>

// The text of a complete PPD file that declares background numbering and has the options
// VQBackgroundNumbering, VQBNSize, VQBNDensity, VQBNColor and VQStartNumber; beside them PageSize
// (A4, Letter, A3), InputSlot, MediaType and Duplex, where printing on both sides of transparencies
// is forbidden. Without color ColorDevice is False and VQBNColor has nothing but Black. `lines` go
// in at the end. No choice does anything in PostScript but the page sizes.
std::string NumberingPPDText(bool color, const std::string &lines = "");

#endif
