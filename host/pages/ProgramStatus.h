// How the helpers for PDF files end.

#ifndef HOST_PAGES_PROGRAMSTATUS_H
#define HOST_PAGES_PROGRAMSTATUS_H

enum PdfStatus {
  kPdfDone = 0,
  kDamaged = 1,
  kWrongArguments = 2,
  kNeedsPassword = 3,
  kTooLarge = 4,  // a page, to be drawn
  kForbidsPrinting = 5
};

#endif
