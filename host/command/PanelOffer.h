// Whether panels are offered for a printer, and who does what they say.

#ifndef HOST_COMMAND_PANELOFFER_H
#define HOST_COMMAND_PANELOFFER_H

#include <optional>
#include <string>
#include <vector>

#include "host/extension/Extensions.h"
#include "host/ppd/PPDFile.h"
#include "host/session/QueueAbility.h"

struct PanelOffer {
  std::vector<std::string> panels;  // their names
  Applications applications;        // where somebody does what they say
  std::string reason;               // where there are no panels, in English
};

// Asks all bundles, also those that the PPD file names. None: a queue without PPD file.
PanelOffer PanelsOfferedFor(std::optional<PPDFile> ppd, const DocumentFormats &formats,
                            Extensions &extensions);

#endif
