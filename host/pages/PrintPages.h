// Printing a job some of which is done here.

#ifndef HOST_PAGES_PRINTPAGES_H
#define HOST_PAGES_PRINTPAGES_H

#include <atomic>
#include <optional>

#include "host/base/Expected.h"
#include "host/cups/PrintServer.h"
#include "host/pages/PagesHere.h"

struct PrintingProgress : SendingProgress {
  std::atomic<bool> is_making_pages = false;
};

// As PrintServer::Print. Where the job asks for something that is done here, its pages are made
// first, and these are sent, with the options that are left; otherwise its documents are sent as
// they are. In both cases the server is not told of the options that are for this computer. The
// failure: also that the pages cannot be made; nothing is sent then.
Expected<int> PrintPages(const PrintServer &server, const JobRequest &request,
                         const std::optional<PagesHere> &here, PrintingProgress &progress);

#endif
