#include <thread>

#include "host/base/Interruption.h"
#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"
#include "host/command/ScriptedJob.h"
#include "host/cups/PrintServer.h"
#include "host/cups/RequestId.h"
#include "host/job/JobFiles.h"
#include "host/job/PageRanges.h"

namespace {

const std::chrono::milliseconds kBetweenQuestions(500);
const int kPatience = 5;  // answers in a row that may fail

int Refuse(const std::string &message, ExitStatus status) {
  Complain(message);
  return status;
}

// Why nothing happens until somebody does something; empty: nothing is in the way.
std::string Obstacle(const JobStatus &status, const std::string &id) {
  if (status.state == JobState::kHeld) return Localized("%1 is held", {id});
  if (status.state != JobState::kStopped) return "";
  return status.message.empty() ? Localized("%1 is stopped", {id}) : status.message;
}

// A stopped printer's jobs wait until somebody starts it again: say so once, and wait with them. A
// server that is slow for once does not end the waiting.
int WaitForEnd(const PrintServer &server, int job, const std::string &id) {
  std::string told;
  for (int failures = 0;;) {
    Expected<JobStatus> status = server.StatusOfJob(job);
    if (!status) {
      if (++failures == kPatience) {
        return Refuse(Localized("%1 was sent, but: %2", {id, status.message()}), kFailed);
      }
      std::this_thread::sleep_for(kBetweenQuestions);
      continue;
    }
    failures = 0;
    if (status->state == JobState::kCompleted) return kDone;
    if (status->HasEnded()) return Refuse(status->HowItEnded(id), kFailed);
    const std::string obstacle = Obstacle(*status, id);
    if (!obstacle.empty() && obstacle != told) Complain(Localized("waiting: %1", {obstacle}));
    told = obstacle;
    std::this_thread::sleep_for(kBetweenQuestions);
  }
}

// A job that was cut off would print in part, or lie on the server until it gives up.
Expected<int> SendInterruptibly(const PrintServer &server, const JobRequest &request) {
  SendingProgress progress;
  const Interruption interruption(progress.cancel);
  return server.Print(request, progress);
}

int Send(const PrintOptions &options, const ScriptedJob &job) {
  const PrintServer server(options.limit);
  Expected<JobRequest> request =
      job.session.RequestFor(job.queue.name, options.files, options.title);
  if (!request) return Refuse(request.message(), kFailed);
  Expected<int> number = SendInterruptibly(server, *request);
  if (!number) return Refuse(number.message(), kFailed);
  const std::string id = RequestId(job.queue.name, *number);
  const std::string result = "request id is " + id;
  const bool told = PrintResults(result + '\n');
  if (!told) Complain(result);  // a script that only saw a failure would print again
  const int end = options.wait ? WaitForEnd(server, *number, id) : kDone;
  return told ? end : kFailed;
}

}  // namespace

int Print(const PrintOptions &options) {
  if (auto done = CheckFiles(options.files); !done) return Refuse(done.message(), kFailed);
  std::error_code error;
  if (!options.ticket.empty() && !std::filesystem::exists(options.ticket, error)) {
    return Refuse(Localized("cannot read ticket %1: %2",
                            {options.ticket.string(), Localized("no such file")}),
                  kFailed);
  }
  std::vector<std::string> changes = options.set;
  if (!options.copies.empty()) {
    Expected<std::string> copies = ParseCopies(options.copies);
    if (!copies) return Refuse("--copies: " + copies.message(), kWrongUsage);
    changes.push_back("copies=" + *copies);
  }
  return WithScriptedJob(options, changes,
                         [&options](const ScriptedJob &job) { return Send(options, job); });
}
