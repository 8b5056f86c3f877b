// The job's print settings in a file: an XML property list.

#ifndef HOST_PRESETS_TICKET_H
#define HOST_PRESETS_TICKET_H

#include <filesystem>
#include <optional>

#include "host/base/Expected.h"
#include "host/job/PrintSettings.h"

// New print settings, never null, with what the file holds; empty ones where there is no such file,
// or no path.
Expected<PrintSettings> ReadTicket(const std::filesystem::path &path);

// Writes all values of the settings, whole or not at all.
Expected<void> WriteTicket(const std::filesystem::path &path, PMPrintSettings settings);

#endif
