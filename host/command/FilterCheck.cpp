#include "host/command/FilterCheck.h"

#include "host/base/Localized.h"
#include "host/chain/FilterProgram.h"
#include "host/chain/ServerFolders.h"
#include "host/command/Server.h"
#include "host/ppd/PPDSource.h"

Expected<std::vector<std::string>> CheckFilters(const PPDChangeOptions &options, bool is_queues,
                                                const WantedFilters &filters,
                                                const std::string &ppd) {
  if (!is_queues || !IsOnThisComputer(ServerOf(options).Address())) {
    return std::vector<std::string>{Localized(
        "make sure that the print server has the filter %1; that cannot be seen from here",
        {filters.documents})};
  }
  const ServerFolders folders = FindServerFolders();
  for (const std::string &name : {filters.documents, filters.pictures}) {
    if (name.empty()) continue;
    if (auto fit = CheckFilterProgram(folders, name); !fit) return fit.failure();
  }
  Expected<PPDFile> file = ParsePPD(ppd);
  if (!file) return file.failure();
  return WaysPast(filters, MimeTables(folders), *file);
}
