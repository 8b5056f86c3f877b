// Which documents pass a filter on their way to a queue's printer.

#ifndef HOST_CHAIN_DOCUMENTWAYS_H
#define HOST_CHAIN_DOCUMENTWAYS_H

#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/chain/MimeTables.h"
#include "host/ppd/PPDFile.h"

struct WantedFilters {
  std::string documents;
  std::string pictures;  // does the same for pictures, where it runs; empty: there is none
};

// Sentences about the kinds of documents that would come to the printer by other ways: pictures,
// text or PostScript. The failure: PDF documents do, or have no way there.
Expected<std::vector<std::string>> WaysPast(const WantedFilters &filters, const MimeTables &tables,
                                            const PPDFile &ppd);

#endif
