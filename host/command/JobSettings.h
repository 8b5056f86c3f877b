// The print settings that a job begins with.

#ifndef HOST_COMMAND_JOBSETTINGS_H
#define HOST_COMMAND_JOBSETTINGS_H

#include "host/base/Expected.h"
#include "host/command/Commands.h"
#include "host/job/PrintSettings.h"

// Those of the preset, under those of the ticket; empty ones where neither is given, or where the
// ticket is not there yet. The failure names the presets that there are.
Expected<PrintSettings> SettingsToBeginWith(const JobSource &source);

#endif
