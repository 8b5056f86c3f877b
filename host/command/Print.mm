#include <thread>

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

int Refuse(const std::string &message, ExitStatus status) {
  Complain(message);
  return status;
}

// Why nothing happens until somebody does something; empty: nothing is in the way.
std::string Obstacle(const JobStatus &status, const std::string &id) {
  if (status.state == JobState::kHeld) return id + " is held";
  if (status.state != JobState::kStopped) return "";
  return status.message.empty() ? id + " is stopped" : status.message;
}

// A stopped printer's jobs wait until somebody starts it again: say so once, and wait with them.
int WaitForEnd(const PrintServer &server, int job, const std::string &id) {
  std::string told;
  for (;;) {
    Expected<JobStatus> status = server.StatusOfJob(job);
    if (!status) return Refuse(id + " was sent, but: " + status.message(), kFailed);
    if (status->state == JobState::kCompleted) return kDone;
    if (status->HasEnded()) {
      const char *what = status->state == JobState::kAborted ? "aborted" : "canceled";
      return Refuse(id + " was " + what + (status->message.empty() ? "" : ": " + status->message),
                    kFailed);
    }
    const std::string obstacle = Obstacle(*status, id);
    if (!obstacle.empty() && obstacle != told) Complain("waiting: " + obstacle);
    told = obstacle;
    std::this_thread::sleep_for(kBetweenQuestions);
  }
}

int Send(const PrintOptions &options, const ScriptedJob &job) {
  const PrintServer server(options.limit);
  JobRequest request;
  request.queue = job.queue.name;
  request.title = options.title.empty() ? TitleOfJob(options.files) : options.title;
  request.options = job.session.Options();
  request.files = options.files;
  SendingProgress progress;
  Expected<int> number = server.Print(request, progress);
  if (!number) return Refuse(number.message(), kFailed);
  const std::string id = RequestId(request.queue, *number);
  const bool told = PrintResults("request id is " + id + '\n');
  const int end = options.wait ? WaitForEnd(server, *number, id) : kDone;
  return told ? end : kFailed;
}

}  // namespace

int Print(const PrintOptions &options) {
  if (auto reason = ReasonAgainstFiles(options.files)) return Refuse(reason->message, kFailed);
  std::error_code error;
  if (!options.ticket.empty() && !std::filesystem::exists(options.ticket, error)) {
    return Refuse("cannot read ticket " + options.ticket.string() + ": no such file", kFailed);
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
