// Where a verb that changes PPD files takes one from, and where it leaves it.

#ifndef HOST_COMMAND_PPDCHANGE_H
#define HOST_COMMAND_PPDCHANGE_H

#include <string>

#include "host/base/Expected.h"
#include "host/command/Commands.h"

struct PPDToChange {
  std::string name;   // of the file or queue, for people
  std::string queue;  // empty: it is a file
  std::string text;
};

// Reads the file, or asks the server for the queue's.
Expected<PPDToChange> TakePPD(const PPDChangeOptions &options);

// Writes the file that the options name, or gives it to the queue, and says so; `change` is a
// clause about the new file, such as "with the options of A". Complains of what goes wrong; the
// answer is the exit status.
int LeavePPD(const PPDChangeOptions &options, const PPDToChange &ppd, const std::string &text,
             const std::string &change);

#endif
