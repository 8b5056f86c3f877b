// Whether panels are offered for a printer.

#ifndef HOST_COMMAND_PANELOFFER_H
#define HOST_COMMAND_PANELOFFER_H

#include <string>
#include <vector>

#include "host/extension/Extensions.h"
#include "host/ppd/PPDFile.h"

struct PanelOffer {
  std::vector<std::string> panels;  // their names
  std::string reason;               // where there are none, in English
};

// Asks all bundles, also those that the PPD file names. Null: a queue without PPD file.
PanelOffer PanelsOfferedFor(const PPDFile *ppd, Extensions &extensions);

#endif
