// What a preset or ticket brings along for a job.

#ifndef HOST_COMMAND_STOREDSETTINGS_H
#define HOST_COMMAND_STOREDSETTINGS_H

#import <PrintCore/PrintCore.h>

#include "host/base/Expected.h"
#include "host/command/Commands.h"
#include "host/session/ValueCheck.h"

// That the settings can be used as they stand: what a printer makes of a value that it does not
// know is not what was asked for. A panel's own setting that this printer cannot do, as a color
// stored for another printer, is for the panel to correct. The failure names the setting, and what
// to do.
Expected<void> CheckStored(PMPrintSettings settings, const ValueCheck &check,
                           const JobSource &source);

#endif
