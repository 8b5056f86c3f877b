// What the print system's commands call a job.

#ifndef HOST_CUPS_REQUESTID_H
#define HOST_CUPS_REQUESTID_H

#include <string>

// QUEUE-NUMBER: a job of an instance is its queue's.
inline std::string RequestId(const std::string &queue, int job) {
  return queue.substr(0, queue.find('/')) + '-' + std::to_string(job);
}

#endif
