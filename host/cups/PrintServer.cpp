#include "host/cups/PrintServer.h"

#include <algorithm>
#include <memory>
#include <thread>

#include "host/base/BackgroundTask.h"
#include "host/base/Localized.h"
#include "host/cups/JobStatus.h"
#include "host/cups/JobTransfer.h"
#include "host/cups/QueueList.h"
#include "host/cups/ServerConnection.h"
#include "host/ppd/PPDSource.h"

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;
using Purpose = Authentication::Purpose;

// How often the one who waits for a job looks after it.
constexpr milliseconds kLook(10);

// How the server is asked, and what for.
struct Asking {
  Asking(milliseconds limit, const std::shared_ptr<Passwords> &passwords,
         Purpose purpose = Purpose::kAnswer, const std::string &queue = "")
      : limit(limit), authentication(std::make_shared<Authentication>(passwords, purpose, queue)) {}

  milliseconds limit;
  std::shared_ptr<Authentication> authentication;
};

// This thread may know an address from before.
std::string AddressNow() {
  std::string address;
  std::thread([&address] { address = AddressOfServer(); }).join();
  return address;
}

// Some of what libcups waits for cannot be bounded: the work is left behind then.
template <typename Answer>
Answer TakeWithinLimit(const Asking &asking, BackgroundTask<Answer> task) {
  for (;;) {
    const auto end = asking.authentication->waits_since() + asking.limit;
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
    if (task.WaitFor(std::max(left, milliseconds(0)))) return task.Take();
    if (left <= milliseconds(0)) return NoAnswer(AddressNow(), asking.limit);
  }
}

template <typename Work>
auto WithinLimit(const Asking &asking, Work work) {
  using Answer = decltype(work(std::declval<const ServerConnection &>()));
  return TakeWithinLimit(
      asking, BackgroundTask<Answer>([limit = asking.limit, authentication = asking.authentication,
                                      work = std::move(work)]() -> Answer {
        Expected<ServerConnection> server = ServerConnection::Open(limit, authentication);
        if (!server) return server.failure();
        return work(*server);
      }));
}

bool HasQueue(const ServerConnection &server, const std::string &queue) {
  IppMessage request = server.Request(IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
  AskFor(request.get(), {"printer-name"});
  return server.Ask(std::move(request)) != nullptr;
}

// False: the queue has none.
Expected<bool> FetchPPDInto(const MemoryFile &file, const ServerConnection &server,
                            const std::string &name) {
  const std::string queue = WithoutInstance(name);
  if (file.get() < 0) return NoMemoryFile();
  const http_status_t status =
      cupsGetFd(server.get(), ("/printers/" + queue + ".ppd").c_str(), file.get());
  if (status == HTTP_STATUS_NOT_FOUND) {
    if (HasQueue(server, queue)) return false;
    if (!server.IsBroken() && cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) {
      return NoSuchQueue(server, name);
    }
    return server.Refused(Localized("the print server %1 does not describe %3: %2"), name);
  }
  // A connection that breaks in the middle of the file is no failure for libcups.
  if (status != HTTP_STATUS_OK || httpError(server.get()) != 0 ||
      httpGetRemaining(server.get()) != 0) {
    return server.Refused(Localized("the print server %1 does not give the PPD file of %3: %2"),
                          name);
  }
  return true;
}

Expected<std::optional<PPDFile>> FetchPPD(const ServerConnection &server, const std::string &name) {
  const MemoryFile file;
  Expected<bool> is_there = FetchPPDInto(file, server, name);
  if (!is_there) return is_there.failure();
  if (!*is_there) return std::optional<PPDFile>();
  Expected<std::string> text = ReadPPD(file.path());
  Expected<PPDFile> ppd = text ? ParsePPD(*text) : Expected<PPDFile>(text.failure());
  if (!ppd) {
    return Failure{Localized("cannot read the PPD file of %1 from the print server %2: %3",
                             {name, server.address(), ppd.message()})};
  }
  return std::optional<PPDFile>(std::move(*ppd));
}

Expected<std::optional<std::string>> FetchPPDText(const ServerConnection &server,
                                                  const std::string &name) {
  const MemoryFile file;
  Expected<bool> is_there = FetchPPDInto(file, server, name);
  if (!is_there) return is_there.failure();
  if (!*is_there) return std::optional<std::string>();
  Expected<std::string> text = ReadPPD(file.path());
  if (!text) {
    return Failure{Localized("cannot read the PPD file of %1 from the print server %2: %3",
                             {name, server.address(), text.message()})};
  }
  return std::optional<std::string>(std::move(*text));
}

Expected<void> SendPPD(const ServerConnection &server, const std::string &name,
                       const std::string &text) {
  const MemoryFile file;
  if (!FillFile(file, text)) return NoMemoryFile();
  IppMessage request = server.Request(IPP_OP_CUPS_ADD_MODIFY_PRINTER, WithoutInstance(name));
  const IppMessage answer =
      server.Answer(cupsDoIORequest(server.get(), request.release(), "/admin/", file.get(), -1));
  const ipp_status_t status = cupsLastError();
  if (answer != nullptr) return {};
  Failure refusal =
      server.Refused(Localized("the print server %1 does not take the PPD file for %3: %2"), name);
  if (!IsNotAllowed(status)) return refusal;
  return refusal.Reworded(
      Localized("%1; only an administrator of the print server may change a queue, run this as one",
                {refusal.message}));
}

// A failure of a job, which is taken back if it has been made. That this fails, too, is part of the
// message.
Failure TakenBack(int job, const Asking &asking, Failure failure) {
  if (job == 0) return failure;
  // Who wants to be rid of a job is not asked for more.
  asking.authentication->Withdraw();
  const Expected<void> taken = TakeWithinLimit(
      asking, BackgroundTask<Expected<void>>(
                  [job, limit = asking.limit, authentication = asking.authentication] {
                    return TakeBack(job, limit, authentication);
                  }));
  if (taken) return failure;
  return failure.Reworded(Localized("%1; job %2 is still there: %3",
                                    {failure.message, std::to_string(job), taken.message()}));
}

}  // namespace

PrintServer::PrintServer(milliseconds limit, std::shared_ptr<Passwords> passwords)
    : limit_(limit), passwords_(std::move(passwords)) {}

std::string PrintServer::Address() const { return AddressNow(); }

Expected<std::vector<Queue>> PrintServer::Queues() const {
  return WithinLimit({limit_, passwords_},
                     [](const ServerConnection &server) -> Expected<std::vector<Queue>> {
                       Expected<QueueList> list = ListQueues(server);
                       if (!list) return list.failure();
                       return std::move(list->queues);
                     });
}

Expected<Queue> PrintServer::FindQueue(const std::string &name) const {
  return WithinLimit(
      {limit_, passwords_}, [name](const ServerConnection &server) -> Expected<Queue> {
        Expected<QueueList> list = ListQueues(server);
        if (!list) return list.failure();
        const auto found = std::ranges::find_if(list->queues, [&name](const Queue &queue) {
          return name.empty() ? queue.is_default : IsSameQueue(queue.name, name);
        });
        if (found != list->queues.end()) return *found;
        if (!name.empty()) return NoSuchQueue(server, name);
        return Failure{Localized("no default queue on the print server %1: %2; there is %3",
                                 {server.address(), list->why_no_default, NamesOf(list->queues)})};
      });
}

Expected<std::optional<PPDFile>> PrintServer::PPDOfQueue(const std::string &name) const {
  return WithinLimit({limit_, passwords_},
                     [name](const ServerConnection &server) { return FetchPPD(server, name); });
}

Expected<std::optional<std::string>> PrintServer::PPDTextOfQueue(const std::string &name) const {
  return WithinLimit({limit_, passwords_},
                     [name](const ServerConnection &server) { return FetchPPDText(server, name); });
}

Expected<void> PrintServer::ReplacePPD(const std::string &name, const std::string &text) const {
  return WithinLimit(
      {limit_, passwords_, Purpose::kAdministration, name},
      [name, text](const ServerConnection &server) { return SendPPD(server, name, text); });
}

Expected<int> PrintServer::Print(const JobRequest &request, SendingProgress &progress) const {
  std::vector<JobFile> files;
  long long total = 0;
  for (const std::filesystem::path &path : request.files) {
    Expected<JobFile> file = JobFile::Open(path);
    if (!file) return file.failure();
    total += file->size();
    files.push_back(std::move(*file));
  }
  if (files.empty()) return Failure{Localized("no file to print")};
  progress.bytes_total = total;

  const auto transfer =
      std::make_shared<JobTransfer>(request, std::move(files), limit_, passwords_);
  BackgroundTask<Expected<int>> task([transfer] { return transfer->Run(); });
  while (!task.WaitFor(kLook)) {
    progress.bytes_sent = transfer->bytes_sent();
    if (progress.cancel) transfer->Stop();
    // What is on its way ends by itself at the limit, if libcups gets to look at the clock.
    const milliseconds patience = transfer->job() == 0 ? limit_ : limit_ + limit_ / 2;
    if (Clock::now() - transfer->last_movement() < patience) continue;
    transfer->Stop();
    return TakenBack(transfer->job(), {limit_, passwords_},
                     progress.cancel ? JobCanceled() : NoAnswer(Address(), limit_));
  }
  progress.bytes_sent = transfer->bytes_sent();
  Expected<int> job = task.Take();
  if (!job) return TakenBack(transfer->job(), {limit_, passwords_}, job.failure());
  if (progress.cancel) return TakenBack(*job, {limit_, passwords_}, JobCanceled());
  return job;
}

Expected<JobStatus> PrintServer::StatusOfJob(int job) const {
  return WithinLimit({limit_, passwords_},
                     [job](const ServerConnection &server) { return FetchStatus(server, job); });
}
