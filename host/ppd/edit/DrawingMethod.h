#ifndef HOST_PPD_EDIT_DRAWINGMETHOD_H
#define HOST_PPD_EDIT_DRAWINGMETHOD_H

// Who does to pages what the options of a bundle say.
enum class DrawingMethod {
  kFitting,  // as before; at first the printer, where it interprets PostScript, else the filter
  kPrinter,
  kFilter,  // one that the print server runs
};

#endif
