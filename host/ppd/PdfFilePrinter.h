// The printer that pages are laid out for which nobody prints: a PDF file.

#ifndef HOST_PPD_PDFFILEPRINTER_H
#define HOST_PPD_PDFFILEPRINTER_H

#include <string>

// Its PPD file, in the user's language: usual paper without margins; that of the user's country
// (LC_PAPER) is chosen.
std::string PdfFilePrinterPPD();

#endif
