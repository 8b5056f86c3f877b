#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"
#include "host/command/PanelOffer.h"
#include "host/command/QueuesReport.h"
#include "host/cups/PrintServer.h"

namespace {

QueueResult CheckQueue(const Queue &queue, const PrintServer &server, Extensions &extensions) {
  QueueResult result{.queue = queue};
  Expected<std::optional<PPDFile>> ppd = InEnglish([&] { return server.PPDOfQueue(queue.name); });
  if (!ppd) {
    result.reason = ppd.message();
    return result;
  }
  PanelOffer offer = PanelsOfferedFor(*ppd ? &**ppd : nullptr, extensions);
  result.panels = std::move(offer.panels);
  result.reason = std::move(offer.reason);
  return result;
}

int Run(const QueuesOptions &options) {
  const PrintServer server(options.limit);
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
  for (const Queue &queue : *queues) {
    @autoreleasepool {
      results.push_back(CheckQueue(queue, server, *extensions));
    }
  }
  if (extensions->bundles().empty()) {
    Complain(extensions->ReasonForNoPanel(nullptr));
    return kFailed;
  }
  return PrintResults(options.json ? QueuesJson(results) : QueuesText(results)) ? kDone : kFailed;
}

}  // namespace

int Queues(const QueuesOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
