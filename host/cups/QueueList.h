// The queues of a print server, as the user sees them.

#ifndef HOST_CUPS_QUEUELIST_H
#define HOST_CUPS_QUEUELIST_H

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/cups/Queue.h"
#include "host/cups/ServerConnection.h"

struct QueueList {
  std::vector<Queue> queues;   // sorted; an instance comes after its queue
  std::string why_no_default;  // where none of them is the default
};

// Printers that libcups finds on the network, but the server does not have, are not among them.
Expected<QueueList> ListQueues(const ServerConnection &server);

// Says so, and which queues there are.
Failure NoSuchQueue(const ServerConnection &server, const std::string &name);

// "A, B, C", not more than fit a message.
std::string NamesOf(const std::vector<Queue> &queues);

// Names of queues are the same whatever the case of letters.
bool IsSameQueue(const std::string &left, const std::string &right);

// What its jobs may really ask for: a queue that has no PPD file, and is no class, sends documents
// as they are, whatever its server lists for it.
OfferedOptions OfferedBy(const Queue &queue, bool has_ppd);

// The queue that NAME/INSTANCE is an instance of.
std::string WithoutInstance(const std::string &name);

#endif
