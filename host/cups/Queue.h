// A print queue, as its server describes it.

#ifndef HOST_CUPS_QUEUE_H
#define HOST_CUPS_QUEUE_H

#include <string>

#include "host/base/JobOptions.h"

enum class QueueState { kIdle, kPrinting, kStopped };

struct Queue {
  std::string name;  // an instance of a queue is NAME/INSTANCE
  std::string description;
  std::string location;
  std::string model;
  bool is_default = false;
  QueueState state = QueueState::kIdle;
  std::string state_message;  // the server's words
  bool accepts_jobs = true;
  JobOptions defaults;  // what the user (lpoptions) and the server give each job of this queue
};

#endif
