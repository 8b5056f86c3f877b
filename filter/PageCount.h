// Who tells the print server of the pages that are printed.

#ifndef FILTER_PAGECOUNT_H
#define FILTER_PAGECOUNT_H

#include <string>
#include <string_view>

#include "filter/Job.h"

// Whether nobody else does, whatever comes before: on a PostScript printer whose PPD file has no
// lines for filters but ours, the print system's last program counts pages only where there are
// none.
bool NobodyElseCountsPages(const Job &job);

// How often the printer is to print each page: as the print system's comments have it, which made
// the other copies itself; else as the job does.
int CopiesByPrinter(std::string_view comments, int of_job);

#endif
