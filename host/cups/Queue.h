// A print queue, as its server describes it.

#ifndef HOST_CUPS_QUEUE_H
#define HOST_CUPS_QUEUE_H

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/base/JobOptions.h"

enum class QueueState { kIdle, kPrinting, kStopped };

// What a queue says that its jobs may ask for: options by name, with the values that it lists, none
// where it lists none.
using OfferedOptions = std::map<std::string, std::vector<std::string>>;

// MIME types of documents that a queue takes. None: the printer is no queue, and nothing is
// printed.
using DocumentFormats = std::optional<std::set<std::string>>;

struct Queue {
  std::string name;  // an instance of a queue is NAME/INSTANCE
  std::string description;
  std::string location;
  std::string model;
  bool is_default = false;
  QueueState state = QueueState::kIdle;
  std::string state_message;  // the server's words
  bool accepts_jobs = true;
  bool is_temporary = false;  // made for a printer on the network, and gone some time after its use
  bool is_class = false;  // its jobs go to one of several printers: it has no PPD file of its own
  OfferedOptions offered;
  DocumentFormats formats;
  JobOptions defaults;  // what the user (lpoptions) and the server give each job of this queue
  std::set<std::string> of_user;  // those of them that are the user's
};

#endif
