// Sending a job to the print server.

#ifndef HOST_CUPS_JOBTRANSFER_H
#define HOST_CUPS_JOBTRANSFER_H

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/cups/Authentication.h"
#include "host/cups/PrintServer.h"

Failure JobCanceled();

// A file that is open for reading.
class JobFile {
 public:
  // Files that are not there, not readable or no files do not open.
  static Expected<JobFile> Open(const std::filesystem::path &path);

  JobFile(JobFile &&other) noexcept;
  JobFile &operator=(JobFile &&other) = delete;
  ~JobFile();

  const std::filesystem::path &path() const { return path_; }
  long long size() const { return size_; }
  // As many bytes as there are, at most so many; 0 at the end, less than 0 with errno.
  ssize_t Read(char *bytes, size_t count);

 private:
  JobFile(std::filesystem::path path, int file, long long size);

  std::filesystem::path path_;
  int file_;
  long long size_;
};

// A job on its way. The thread that sends it may have to be left behind by the one that waits for
// it, so both share the ownership.
class JobTransfer {
 public:
  JobTransfer(JobRequest request, std::vector<JobFile> files, std::chrono::milliseconds limit,
              const std::shared_ptr<Passwords> &passwords);

  // On a new thread: sends the job and answers its number. After a failure a job that has been made
  // is left for others to take back, but one that was made after Stop is not.
  Expected<int> Run();

  // On other threads:
  void Stop();
  int job() const { return job_; }  // 0: none has been made
  long long bytes_sent() const { return bytes_sent_; }
  // Since when nothing has been sent, and nobody asked for a password.
  std::chrono::steady_clock::time_point last_movement() const;

 private:
  Expected<int> Create(const class ServerConnection &server);
  Expected<void> SendFiles(const ServerConnection &server);
  Expected<void> SendFile(const ServerConnection &server, JobFile &file, bool is_last);
  Expected<void> CheckNotStopped() const;
  bool GoOnWaiting(int socket);
  void Moved() { last_movement_ = std::chrono::steady_clock::now(); }

  const JobRequest request_;
  const std::string queue_;
  std::vector<JobFile> files_;
  const std::chrono::milliseconds limit_;
  const std::shared_ptr<Authentication> authentication_;
  int unsent_ = 0;  // by the system

  std::atomic<int> job_ = 0;
  std::atomic<long long> bytes_sent_ = 0;
  std::atomic<bool> stopped_ = false;
  std::atomic<std::chrono::steady_clock::time_point> last_movement_;
};

// Cancels the job, on a connection of its own, on a new thread. A job that has ended already is no
// failure.
Expected<void> TakeBack(int job, std::chrono::milliseconds limit,
                        std::shared_ptr<Authentication> authentication);

#endif
