// The printer that a command is about: a queue of the server, or a PPD file.

#ifndef HOST_COMMAND_PRINTER_H
#define HOST_COMMAND_PRINTER_H

#include <optional>
#include <string>

#include "host/base/Expected.h"
#include "host/command/Commands.h"
#include "host/cups/Queue.h"
#include "host/ppd/PPDFile.h"

struct Printer {
  std::string name;  // for people: of the file or queue
  Queue queue;       // without a name: the printer is a PPD file
  std::optional<PPDFile> ppd;
};

// Opens the PPD file, or asks the server for the queue and its PPD file.
Expected<Printer> OpenPrinter(const JobSource &source);

#endif
