// What has become of a job.

#ifndef HOST_CUPS_JOBSTATUS_H
#define HOST_CUPS_JOBSTATUS_H

#include <string>

#include "host/base/Expected.h"

class ServerConnection;

enum class JobState { kPending, kHeld, kProcessing, kStopped, kCanceled, kAborted, kCompleted };

struct JobStatus {
  JobState state = JobState::kPending;
  std::string message;          // the server's words; empty: none
  bool needs_somebody = false;  // being printed, it waits for paper, for instance

  bool HasEnded() const { return state >= JobState::kCanceled; }
  // Of a job that has ended: "ID was canceled: REASON".
  std::string HowItEnded(const std::string &id) const;
};

// Asks the server; of a job that waits for its printer, also about that.
Expected<JobStatus> FetchStatus(const ServerConnection &server, int job);

#endif
