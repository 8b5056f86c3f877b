// The print server (CUPS) that this user's programs talk to. Everything that needs a connection is
// here.

#ifndef HOST_CUPS_PRINTSERVER_H
#define HOST_CUPS_PRINTSERVER_H

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/cups/JobStatus.h"
#include "host/cups/Passwords.h"
#include "host/cups/Queue.h"
#include "host/ppd/PPDFile.h"

struct JobRequest {
  std::string queue;
  std::string title;
  JobOptions options;  // these alone: a queue's defaults are for the caller to merge
  std::vector<std::filesystem::path> files;
};

// What a job that is being sent has come to; written by the sending thread, read by another.
struct SendingProgress {
  std::atomic<long long> bytes_sent = 0;
  std::atomic<long long> bytes_total = 0;
  std::atomic<bool> cancel = false;  // set by the reader: stop and take the job back
};

// Each operation opens a connection of its own, may be called on any thread, blocks, and ends
// within the limit whatever the server, the network or a name server does; printing, which takes as
// long as its files are, ends when nothing could be sent for so long. Failures say which server,
// and its own words where it gave some.
//
// A password that the server wants is asked for, on the thread on which the operation works and not
// on the one that called it; while it is asked for the limit stands still, and begins anew after
// it.
class PrintServer {
 public:
  // Without passwords nobody is asked: operations that want one fail.
  explicit PrintServer(std::chrono::milliseconds limit,
                       std::shared_ptr<Passwords> passwords = nullptr);

  // The address, for people: "localhost:631".
  std::string Address() const;

  // Sorted by name, the queues without an instance before those with one; never empty: a server
  // without queues is a failure.
  Expected<std::vector<Queue>> Queues() const;

  // An empty name: the user's default queue. The failure names the queues that there are.
  Expected<Queue> FindQueue(const std::string &name) const;

  // No value inside: the queue has no PPD file.
  Expected<std::optional<PPDFile>> PPDOfQueue(const std::string &name) const;

  // The bytes of its PPD file; no value inside: it has none. Of a class they are one of its
  // printers'.
  Expected<std::optional<std::string>> PPDTextOfQueue(const std::string &name) const;

  // Gives a queue this PPD file, as its administrator. All else that the server keeps of the queue
  // stays; the default choices of the printer's options are those of the new file.
  Expected<void> ReplacePPD(const std::string &name, const std::string &text) const;

  // Sends all files as one job and answers its number. Files that cannot be read are found before
  // anything is sent; if sending fails later, the job is taken back: nothing is printed.
  Expected<int> Print(const JobRequest &request, SendingProgress &progress) const;

  Expected<JobStatus> StatusOfJob(int job) const;

 private:
  std::chrono::milliseconds limit_;
  std::shared_ptr<Passwords> passwords_;
};

#endif
