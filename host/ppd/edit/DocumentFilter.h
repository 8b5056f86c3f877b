// Lines that have the print system run a bundle's filter for documents on a queue.

#ifndef HOST_PPD_EDIT_DOCUMENTFILTER_H
#define HOST_PPD_EDIT_DOCUMENTFILTER_H

#include <string>

#include "host/base/Expected.h"
#include "host/ppd/PPDFile.h"
#include "host/ppd/PrinterOptions.h"

// The lines, each ending with LF, for a file that has none of them yet. With them the filter gets
// documents as PDF, when their pages have been laid out, and before they become what the printer
// takes. The lines that the file has stay in force. Pictures take the same way where the bundle has
// a filter for them. The failure: the way of documents on this queue has no place for it.
Expected<std::string> LinesForDocumentFilter(const PPDFile &ppd, const PrinterOptions &options);

#endif
