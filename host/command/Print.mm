#include <cstring>
#include <thread>

#include "host/base/Interruption.h"
#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/base/Text.h"
#include "host/command/Commands.h"
#include "host/command/Display.h"
#include "host/command/ScriptedJob.h"
#include "host/command/Server.h"
#include "host/cups/JobWaiting.h"
#include "host/cups/RequestId.h"
#import "host/dialog/Controls.h"
#include "host/dialog/Prompt.h"
#include "host/pages/PrintPages.h"

namespace {

int Refuse(const std::string &message, ExitStatus status) {
  Complain(message);
  return status;
}

// What is in the way is said once.
int WaitForEnd(const PrintServer &server, int job, const std::string &id) {
  JobWaiting waiting(id);
  std::string told;
  while (!waiting.Take(server.StatusOfJob(job))) {
    const std::string &obstacle = waiting.obstacle();
    if (!obstacle.empty() && obstacle != told) Complain(Localized("waiting: %1", {obstacle}));
    told = obstacle;
    std::this_thread::sleep_for(kBetweenQuestions);
  }
  const Expected<void> printed = waiting.result();
  return printed ? kDone : Refuse(printed.message(), kFailed);
}

// A job that was cut off would print in part, or lie on the server until it gives up.
Expected<int> SendInterruptibly(const PrintServer &server, const JobRequest &request,
                                const std::optional<PagesHere> &here) {
  PrintingProgress progress;
  const Interruption interruption(progress.cancel);
  return PrintPages(server, request, here, progress);
}

int Send(const PrintOptions &options, const ScriptedJob &job) {
  const PrintServer server = ServerOf(options);
  Expected<JobRequest> request =
      job.session.RequestFor(job.queue.name, options.files, options.title);
  if (!request) return Refuse(request.message(), kFailed);
  Expected<int> number = SendInterruptibly(server, *request, job.session.here());
  if (!number) return Refuse(number.message(), kFailed);
  const std::string id = RequestId(job.queue.name, *number);
  const std::string result = "request id is " + id;
  const bool told = PrintResults(result + '\n');
  if (!told) Complain(result);  // a script that only saw a failure would print again
  const int end = options.wait ? WaitForEnd(server, *number, id) : kDone;
  return told ? end : kFailed;
}

int Work(const PrintOptions &options) {
  if (options.unreadable != 0) {
    return Refuse(Localized("cannot print %1: %2",
                            {Quoted(options.title), std::strerror(options.unreadable)}),
                  kFailed);
  }
  return WithFileJob(options, [&options](const ScriptedJob &job) { return Send(options, job); });
}

}  // namespace

int Print(const PrintOptions &options) {
  const int status = Work(options);
  if (status == kDone || !options.alert) return status;
  @autoreleasepool {
    if (ConnectToDisplay()) Tell(Text(Sentence(LastComplaint())));
  }
  return status;
}
