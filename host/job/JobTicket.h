// The job's print settings in a file: an XML property list.

#ifndef HOST_JOB_JOBTICKET_H
#define HOST_JOB_JOBTICKET_H

#include <filesystem>
#include <optional>

#include "host/base/Expected.h"
#include "host/base/Retained.h"
#include "host/cups/JobOptions.h"

PrintSettings EmptyPrintSettings();

// New print settings with what the file holds; empty ones where there is no such file, or no path.
Expected<PrintSettings> ReadTicket(const std::filesystem::path &path);

// Writes all values of the settings, whole or not at all.
std::optional<Failure> WriteTicket(const std::filesystem::path &path, PMPrintSettings settings);

// The settings as job options. A value that is neither a string nor a number is none, nor is a text
// that no server can be sent: with a zero character, or half of a surrogate pair.
JobOptions JobOptionsFromSettings(PMPrintSettings settings);

// The value of one of them; none: there is no such option.
std::optional<std::string> JobOptionFromSettings(PMPrintSettings settings, const std::string &name);

#endif
