// Whether a print server would run the filters that a queue's new PPD file names.

#ifndef HOST_COMMAND_FILTERCHECK_H
#define HOST_COMMAND_FILTERCHECK_H

#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/chain/DocumentWays.h"
#include "host/command/Commands.h"

// Notes for the administrator: which documents would not pass them, or that nothing could be looked
// at: the server is another machine's, or the PPD file no queue's yet. The failure: the server of
// this computer does not have them, or does not run them, or no documents pass them.
Expected<std::vector<std::string>> CheckFilters(const PPDChangeOptions &options, bool is_queues,
                                                const WantedFilters &filters,
                                                const std::string &ppd);

#endif
