// What `pdeprint queues` says.

#ifndef HOST_COMMAND_QUEUESREPORT_H
#define HOST_COMMAND_QUEUESREPORT_H

#include <string>
#include <vector>

#include "host/cups/Queue.h"
#include "host/session/Application.h"

struct QueueResult {
  Queue queue;
  std::vector<std::string> panels = {};  // names; empty: none is offered
  std::string reason = {};               // why not
  Applications applications = {};        // who does what panels say
};

// One line a queue: "* NAME: panels, or why there are none"; the default queue has the star.
std::string QueuesText(const std::vector<QueueResult> &results);

// An array of {"name", "default", "description", "location", "model", "state" ("idle", "printing"
// or "stopped"), "acceptsJobs", "offered", "panels", "applied", "reason"}; applied is an array of
// {"bundle", "by" ("printer", "server" or "computer")}, reason null where a panel is offered.
std::string QueuesJson(const std::vector<QueueResult> &results);

#endif
