// Options of a job in a file that pdeprint reads.

#ifndef PORTAL_TICKET_H
#define PORTAL_TICKET_H

#include <filesystem>
#include <string>

#include "host/base/JobOptions.h"

// The text of a ticket: an XML property list.
std::string TicketOf(const JobOptions &options);

// Whether it is written.
bool WriteTicket(const std::filesystem::path &file, const JobOptions &options);

#endif
