// Where a verb that changes PPD files takes one from, and where it leaves it.

#ifndef HOST_COMMAND_PPDCHANGE_H
#define HOST_COMMAND_PPDCHANGE_H

#include <functional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/command/Commands.h"

struct PPDToChange {
  std::string name;   // of the file or queue, for people
  std::string queue;  // empty: it is a file
  std::string text;
};

struct ChangedPPD {
  std::string text;
  std::string change;  // a clause about it, such as "with the options of A"
  std::vector<std::string> notes;
};

struct PPDChange {
  // The failure says why this file cannot be changed.
  std::function<Expected<ChangedPPD>(const PPDToChange &)> make;
  // The message about that, with the file's or queue's name.
  std::function<std::string(const std::string &name, const std::string &reason)> refusal;
};

// Reads the file that the options name, or asks the server for the queue's; changes it; writes the
// new file, or gives it to the queue, and says so. Or does so with each of the server's queues, and
// reports. Complains of what goes wrong; the answer is the exit status.
int ChangePPDs(const PPDChangeOptions &options, const PPDChange &change);

#endif
