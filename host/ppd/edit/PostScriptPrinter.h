// Whether a printer interprets PostScript that the print system passes on.

#ifndef HOST_PPD_EDIT_POSTSCRIPTPRINTER_H
#define HOST_PPD_EDIT_POSTSCRIPTPRINTER_H

#include "host/base/Expected.h"
#include "host/ppd/PPDFile.h"

// That PostScript code of the printer's options is run on it.
// Printers of the first language level cannot run code of options. What filters other than the
// print system's own make of documents is unknown, and taken for no PostScript.
Expected<void> CheckTakesPostScript(const PPDFile &ppd);

#endif
