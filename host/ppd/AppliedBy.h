// Who does what the options of a bundle say.

#ifndef HOST_PPD_APPLIEDBY_H
#define HOST_PPD_APPLIEDBY_H

#include "host/ppd/PPDFile.h"
#include "host/ppd/PrinterOptions.h"

enum class AppliedBy {
  kPrinter,
  kServer,  // the print server, by the bundle's document filter
  kNobody
};

// As the PPD file has it.
AppliedBy WhoApplies(const PPDFile &ppd, const PrinterOptions &options);

#endif
