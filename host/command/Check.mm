#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/CheckReport.h"
#include "host/command/Commands.h"
#include "host/command/PanelOffer.h"
#include "host/command/Server.h"
#include "host/ppd/PPDSource.h"

namespace {

CheckResult CheckPrinter(const std::string &name, std::optional<PPDFile> ppd,
                         const DocumentFormats &formats, Extensions &extensions) {
  CheckResult result{.file = name};
  result.readable = true;
  result.color = ppd && ppd->IsColorDevice();
  PanelOffer offer = PanelsOfferedFor(std::move(ppd), formats, extensions);
  result.applications = std::move(offer.applications);
  result.panels = std::move(offer.panels);
  result.reason = std::move(offer.reason);
  return result;
}

CheckResult CheckFile(const std::filesystem::path &path, Extensions &extensions) {
  Expected<PPDFile> ppd = InEnglish([&path] { return OpenPPD(path, PPDTexts::kFilesLanguage); });
  if (!ppd) return CheckResult{.file = path.string(), .reason = ppd.message()};
  return CheckPrinter(path.string(), std::move(*ppd), std::nullopt, extensions);
}

CheckResult CheckQueue(const std::string &name, const PrintServer &server, Extensions &extensions) {
  Expected<Queue> queue = InEnglish([&] { return server.FindQueue(name); });
  if (!queue) return CheckResult{.file = name, .reason = queue.message()};
  Expected<std::optional<PPDFile>> ppd = InEnglish([&] { return server.PPDOfQueue(name); });
  if (!ppd) return CheckResult{.file = name, .reason = ppd.message()};
  return CheckPrinter(name, std::move(*ppd), queue->formats, extensions);
}

int Run(const CheckOptions &options) {
  Expected<Extensions> extensions = Extensions::Load(options.plugin);
  if (!extensions) {
    Complain(extensions.message());
    return kFailed;
  }
  std::vector<CheckResult> results;
  for (const std::filesystem::path &ppd : options.ppds) {
    @autoreleasepool {
      results.push_back(CheckFile(ppd, *extensions));
    }
  }
  const PrintServer server = ServerOf(options);
  for (const std::string &queue : options.queues) {
    @autoreleasepool {
      results.push_back(CheckQueue(queue, server, *extensions));
    }
  }
  if (extensions->bundles().empty()) {
    Complain(extensions->ReasonForNoPanel(nullptr));
    return kFailed;
  }
  if (!PrintResults(options.json ? CheckJson(results) : CheckText(results))) return kFailed;
  const bool all_readable = std::all_of(results.begin(), results.end(),
                                        [](const auto &result) { return result.readable; });
  return all_readable ? kDone : kFailed;
}

}  // namespace

int Check(const CheckOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
