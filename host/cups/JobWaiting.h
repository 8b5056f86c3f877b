// Waiting for the end of a job: when to go on, and when to give up.

#ifndef HOST_CUPS_JOBWAITING_H
#define HOST_CUPS_JOBWAITING_H

#include <chrono>
#include <string>

#include "host/base/Expected.h"
#include "host/cups/PrintServer.h"

// Between two questions about a job.
inline constexpr std::chrono::milliseconds kBetweenQuestions(500);

// Takes the answers about one job. A server that is slow for once does not end the waiting; one
// that fails several times in a row does, and so does one that wants a password and gets none.
class JobWaiting {
 public:
  explicit JobWaiting(std::string id) : id_(std::move(id)) {}

  // Whether the waiting is over.
  bool Take(const Expected<JobStatus> &status);

  // Why nothing happens until somebody does something, or what the printer says; empty: nothing.
  const std::string &obstacle() const { return obstacle_; }
  const std::string &message() const { return message_; }

  // After the end: whether the job was printed; or what has become of it.
  Expected<void> result() const { return result_; }

 private:
  const std::string id_;
  std::string obstacle_;
  std::string message_;
  int failures_ = 0;
  Expected<void> result_;
};

#endif
