#include "host/cups/JobTransfer.h"

#include <fcntl.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "host/base/Localized.h"
#include "host/base/OneLine.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"
#include "host/cups/QueueList.h"
#include "host/cups/ServerConnection.h"
#include "host/ppd/CupsOptions.h"

namespace {

using Clock = std::chrono::steady_clock;

// Small, so that also over a slow line something moves all the time.
constexpr size_t kPiece = 8192;

// The protocol has no room for more; libcups would send half of the request.
constexpr size_t kLongestText = 32767;

// As the protocol takes names.
std::string Name(const std::string &text) {
  constexpr size_t kLongest = 255;
  std::string name = OnOneLine(ToUtf8(text));
  if (name.size() > kLongest)
    name = WithoutCutCharacter(std::string_view(name).substr(0, kLongest));
  return name;
}

// The protocol numbers the values of these, and libcups takes a name of one for 0.
JobOptions WithNumbers(JobOptions options) {
  for (const char *name : {"finishings", "orientation-requested", "print-quality"}) {
    const auto option = options.find(name);
    if (option == options.end()) continue;
    std::string numbers;
    for (size_t begin = 0, comma = 0; comma != std::string::npos; begin = comma + 1) {
      comma = option->second.find(',', begin);
      const std::string value = option->second.substr(begin, comma - begin);
      const int number = ippEnumValue(name, value.c_str());
      numbers += (begin == 0 ? "" : ",") + (number < 0 ? value : std::to_string(number));
    }
    option->second = numbers;
  }
  return options;
}

std::string FormatIn(const JobOptions &options) {
  if (options.contains("raw")) return CUPS_FORMAT_RAW;
  const auto format = options.find("document-format");
  return format == options.end() ? CUPS_FORMAT_AUTO : format->second;
}

}  // namespace

Failure JobCanceled() { return Failure{Localized("the job was canceled")}; }

Expected<JobFile> JobFile::Open(const std::filesystem::path &path) {
  const auto failure = [&path](const std::string &why) {
    return Failure{Localized("cannot print %1: %2", {path.string(), why})};
  };
  // A pipe that nobody writes to would not open at all.
  const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0)
    return failure(errno == ENOENT ? Localized("no such file") : std::strerror(errno));
  JobFile file(path, descriptor, 0);
  struct stat status;
  if (fstat(descriptor, &status) != 0) return failure(std::strerror(errno));
  if (S_ISDIR(status.st_mode)) return failure(Localized("it is a folder"));
  if (!S_ISREG(status.st_mode)) return failure(Localized("not a regular file"));
  if (status.st_size == 0) return failure(Localized("the file is empty"));
  file.size_ = status.st_size;
  return file;
}

JobFile::JobFile(std::filesystem::path path, int file, long long size)
    : path_(std::move(path)), file_(file), size_(size) {}

JobFile::JobFile(JobFile &&other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, -1)), size_(other.size_) {}

JobFile::~JobFile() {
  if (file_ >= 0) close(file_);
}

ssize_t JobFile::Read(char *bytes, size_t count) {
  ssize_t length;
  do {
    length = read(file_, bytes, count);
  } while (length < 0 && errno == EINTR);
  return length;
}

JobTransfer::JobTransfer(JobRequest request, std::vector<JobFile> files,
                         std::chrono::milliseconds limit,
                         const std::shared_ptr<Passwords> &passwords)
    : request_(std::move(request)),
      queue_(WithoutInstance(request_.queue)),
      files_(std::move(files)),
      limit_(limit),
      authentication_(std::make_shared<Authentication>(
          passwords, Authentication::Purpose::kPrinting, request_.queue)),
      last_movement_(Clock::now()) {}

Expected<int> JobTransfer::Run() {
  Expected<ServerConnection> server = ServerConnection::Open(limit_, authentication_);
  if (!server) return server.failure();
  // Several times within the limit, so that stopping does not take all of it.
  const std::chrono::duration<double> slice = std::max(limit_ / 8, std::chrono::milliseconds(1));
  httpSetTimeout(
      server->get(), slice.count(),
      [](http_t *connection, void *transfer) {
        return static_cast<JobTransfer *>(transfer)->GoOnWaiting(httpGetFd(connection)) ? 1 : 0;
      },
      this);
  Expected<int> job = Create(*server);
  if (!job) return job;
  job_ = *job;
  Moved();
  // The one who waits may have given up before there was a number.
  if (stopped_) (void)TakeBack(*job, limit_, authentication_);
  if (auto done = SendFiles(*server); !done) return done.failure();
  return job;
}

Expected<int> JobTransfer::Create(const ServerConnection &server) {
  for (const auto &[name, value] : request_.options) {
    if (value.size() > kLongestText) {
      return Failure{
          Localized("the value of %1 is too long: it has %2 bytes, and a job can carry %3",
                    {Quoted(name), std::to_string(value.size()), std::to_string(kLongestText)})};
    }
    if (name.size() <= kLongestText) continue;
    return Failure{
        Localized("%1 is not sent to the printer: no option can have this name or this value",
                  {Quoted(name)})};
  }
  IppMessage request = server.Request(IPP_OP_CREATE_JOB, queue_);
  if (!request_.title.empty()) {
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr,
                 Name(request_.title).c_str());
  }
  const CupsOptions options(WithNumbers(request_.options));
  for (const ipp_tag_t group : {IPP_TAG_OPERATION, IPP_TAG_JOB, IPP_TAG_SUBSCRIPTION}) {
    cupsEncodeOptions2(request.get(), options.count(), options.get(), group);
  }
  const IppMessage answer = server.Ask(std::move(request), ("/printers/" + queue_).c_str());
  if (answer != nullptr) return NumberOf(answer.get(), "job-id");
  if (stopped_) return JobCanceled();
  if (!server.IsBroken() && cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) {
    return NoSuchQueue(server, request_.queue);
  }
  const bool is_about_the_user = !server.IsBroken() && IsNotAllowed(cupsLastError());
  const Failure refusal = server.Refused(Localized("the print server %1 refuses the job: %2"));
  if (!is_about_the_user || refusal.wants_password) return refusal;
  return refusal.Reworded(
      Localized("%1; %2 may not print on %3", {refusal.message, cupsUser(), request_.queue}));
}

Expected<void> JobTransfer::SendFiles(const ServerConnection &server) {
  for (JobFile &file : files_) {
    if (auto done = SendFile(server, file, &file == &files_.back()); !done) return done;
  }
  return CheckNotStopped();
}

Expected<void> JobTransfer::SendFile(const ServerConnection &server, JobFile &file, bool is_last) {
  const auto refused = [&] {
    if (auto done = CheckNotStopped(); !done) return done.failure();
    return server.Refused(Localized("the print server %1 refuses %3: %2"), file.path().string());
  };
  if (auto done = CheckNotStopped(); !done) return done;
  const std::string name = Name(file.path().filename().string());
  if (cupsStartDocument(server.get(), queue_.c_str(), job_, name.c_str(),
                        FormatIn(request_.options).c_str(),
                        is_last ? 1 : 0) != HTTP_STATUS_CONTINUE) {
    return refused();
  }
  const auto unreadable = [&file](const std::string &why) {
    return Failure{Localized("cannot read %1: %2", {file.path().string(), why})};
  };
  std::array<char, kPiece> piece;
  ssize_t length;
  long long missing = file.size();
  while ((length = file.Read(piece.data(), piece.size())) > 0) {
    if (auto done = CheckNotStopped(); !done) return done;
    if (cupsWriteRequestData(server.get(), piece.data(), static_cast<size_t>(length)) !=
        HTTP_STATUS_CONTINUE) {
      return refused();
    }
    bytes_sent_ += length;
    missing -= length;
    Moved();
  }
  if (length < 0) return unreadable(std::strerror(errno));
  // Somebody writes it anew meanwhile: what has been read of it is no document.
  if (missing > 0) return unreadable(Localized("the file is damaged or cut off"));
  // cupsFinishDocument does not tell when there is no answer.
  if (server.Answer(cupsGetResponse(server.get(), ("/printers/" + queue_).c_str())) == nullptr) {
    return refused();
  }
  Moved();
  return {};
}

Expected<void> JobTransfer::CheckNotStopped() const {
  if (stopped_) return JobCanceled();
  return {};
}

void JobTransfer::Stop() {
  stopped_ = true;
  authentication_->Withdraw();
}

Clock::time_point JobTransfer::last_movement() const {
  return std::max(last_movement_.load(), authentication_->waits_since());
}

bool JobTransfer::GoOnWaiting(int socket) {
  int unsent = 0;
  if (ioctl(socket, SIOCOUTQ, &unsent) == 0 && unsent != std::exchange(unsent_, unsent)) Moved();
  // Who gives up before the server tells the job's number can never take it back: the one who
  // waits for all this does not wait so long.
  if (job_ == 0) return Clock::now() - last_movement() < 10 * limit_;
  return !stopped_ && Clock::now() - last_movement() < limit_;
}

Expected<void> TakeBack(int job, std::chrono::milliseconds limit,
                        std::shared_ptr<Authentication> authentication) {
  Expected<ServerConnection> server = ServerConnection::Open(limit, std::move(authentication));
  if (!server) return server.failure();
  const ipp_status_t status = cupsCancelJob2(server->get(), nullptr, job, 0);
  const bool is_done =
      status < IPP_STATUS_REDIRECTION_OTHER_SITE || status == IPP_STATUS_ERROR_NOT_POSSIBLE;
  if (is_done && !server->IsBroken()) return {};
  return server->Refused(Localized("the print server %1 does not cancel the job: %2"));
}
