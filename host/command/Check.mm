#include <algorithm>

#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/CheckReport.h"
#include "host/command/Commands.h"
#include "host/extension/BundleSearch.h"
#include "host/extension/ExtensionBundle.h"
#include "host/job/JobTicket.h"

namespace {

CheckResult CheckFile(const std::filesystem::path &path, const ExtensionBundle &bundle) {
  CheckResult result{.file = path.string()};
  Expected<PPDFile> ppd = PPDFile::Open(path);
  if (!ppd) {
    result.reason = ppd.message();
    return result;
  }
  result.readable = true;
  result.color = ppd->IsColorDevice();

  PrintSettings settings = EmptyPrintSettings();
  auto callback =
      Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings.get()
                                                                          ppdFile:ppd->get()]);
  @try {
    for (id<PDEPanel> panel in bundle.Panels(callback.get())) {
      result.panels.emplace_back([[panel panelName] UTF8String]);
    }
    if (result.panels.empty()) result.reason = bundle.ReasonForNoPanel(*ppd);
  } @catch (NSException *exception) {
    result.panels.clear();
    result.reason = DescribeException(bundle.bundle(), exception);
  }
  return result;
}

}  // namespace

int Check(const CheckOptions &options) {
  @autoreleasepool {
    Expected<std::filesystem::path> path = FindBundle(options.plugin);
    if (!path) {
      Complain(path.message());
      return kFailed;
    }
    Expected<ExtensionBundle> bundle = ExtensionBundle::Load(*path);
    if (!bundle) {
      Complain(bundle.message());
      return kFailed;
    }
    std::vector<CheckResult> results;
    for (const std::filesystem::path &ppd : options.ppds) {
      @autoreleasepool {
        results.push_back(CheckFile(ppd, *bundle));
      }
    }
    if (!PrintResults(options.json ? CheckJson(results) : CheckText(results))) return kFailed;
    const bool all_readable = std::all_of(results.begin(), results.end(),
                                          [](const auto &result) { return result.readable; });
    return all_readable ? kDone : kFailed;
  }
}
