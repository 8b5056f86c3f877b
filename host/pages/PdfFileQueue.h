// The queue for which pages are laid out that are kept as a file.

#ifndef HOST_PAGES_PDFFILEQUEUE_H
#define HOST_PAGES_PDFFILEQUEUE_H

#include "host/cups/Queue.h"

// Of no print server, and without a name. It takes pages as they are laid out here.
Queue PdfFileQueue();

#endif
