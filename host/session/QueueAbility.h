// What a queue can do of what bundles want, and what this computer does in its place.

#ifndef HOST_SESSION_QUEUEABILITY_H
#define HOST_SESSION_QUEUEABILITY_H

#include <optional>
#include <string>
#include <vector>

#include "host/cups/Queue.h"
#include "host/extension/Extensions.h"
#include "host/pages/PagesHere.h"
#include "host/ppd/PPDFile.h"
#include "host/session/Application.h"

struct QueueAbility {
  std::optional<PPDFile> ppd;  // with the options of bundles that are applied here
  Applications applications;
  std::optional<PagesHere> here;  // some are
  PageMaking making;         // of all pages, whoever applies the options to those that are printed
  std::string why_not_here;  // where bundles could be, but for this; empty: no reason
};

// Bundles whose options neither the printer nor the server does anything with are applied here,
// where the queue has a PPD file and takes pages that are laid out, and the programs are there.
QueueAbility AbilityOf(std::optional<PPDFile> ppd, const DocumentFormats &formats,
                       const Extensions &extensions);

// Why there is no panel: this reason, and why that is not done here either, if that is known.
std::string WithReason(const std::string &reason, const std::string &why_not_here);

#endif
