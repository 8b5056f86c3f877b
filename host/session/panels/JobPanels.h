// The dialog's own panels in which people choose something.

#ifndef HOST_SESSION_PANELS_JOBPANELS_H
#define HOST_SESSION_PANELS_JOBPANELS_H

#include <string>
#include <vector>

#include "host/session/panels/PanelRows.h"

struct JobPanel {
  std::string kind;   // no other panel's
  std::string title;  // localized
  PanelRows (*rows)(const JobSession &session);

  // Without those of options that an extension's panel shows.
  PanelRows RowsFor(const JobSession &session) const;
};

// In the order in which they are offered.
std::vector<JobPanel> JobPanels();

#endif
