// Whether a printer interprets PostScript that the print system passes on.

#ifndef HOST_PPD_EDIT_POSTSCRIPTPRINTER_H
#define HOST_PPD_EDIT_POSTSCRIPTPRINTER_H

#include <optional>
#include <string>

#include "host/ppd/PPDFile.h"

// Why PostScript code of the printer's options would not be run on it, for people; none: it is.
// Printers of the first language level cannot run code of options. What filters other than the
// print system's own make of documents is unknown, and taken for no PostScript.
std::optional<std::string> WhyNotPostScript(const PPDFile &ppd);

#endif
