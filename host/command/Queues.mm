#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"
#include "host/command/PanelOffer.h"
#include "host/command/QueuesReport.h"
#include "host/command/Server.h"

namespace {

// Once the server has gone, all further queues have the same result: asking about each would take
// the limit each time, or the user for a password that was not given.
QueueResult CheckQueue(const Queue &queue, const PrintServer &server, Extensions &extensions,
                       Expected<void> &server_answers) {
  QueueResult result{.queue = queue};
  if (!server_answers) {
    result.reason = server_answers.message();
    return result;
  }
  Expected<std::optional<PPDFile>> ppd = InEnglish([&] { return server.PPDOfQueue(queue.name); });
  if (!ppd) {
    result.reason = ppd.message();
    const Failure &failure = ppd.failure();
    if (failure.is_unanswered || failure.wants_password) server_answers = failure;
    return result;
  }
  PanelOffer offer = PanelsOfferedFor(std::move(*ppd), queue.formats, extensions);
  result.applications = std::move(offer.applications);
  result.panels = std::move(offer.panels);
  result.reason = std::move(offer.reason);
  return result;
}

int Run(const QueuesOptions &options) {
  const PrintServer server = ServerOf(options);
  Expected<std::vector<Queue>> queues = server.Queues();
  if (!queues) {
    Complain(queues.message());
    return kFailed;
  }
  Expected<Extensions> extensions = Extensions::Load(options.plugin);
  if (!extensions) {
    Complain(extensions.message());
    return kFailed;
  }
  std::vector<QueueResult> results;
  Expected<void> server_answers;
  for (const Queue &queue : *queues) {
    @autoreleasepool {
      results.push_back(CheckQueue(queue, server, *extensions, server_answers));
    }
  }
  if (extensions->bundles().empty()) {
    Complain(extensions->ReasonForNoPanel(nullptr));
    return kFailed;
  }
  if (!PrintResults(options.json ? QueuesJson(results) : QueuesText(results))) return kFailed;
  return server_answers ? kDone : kFailed;
}

}  // namespace

int Queues(const QueuesOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
