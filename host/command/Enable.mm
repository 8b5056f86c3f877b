#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/command/Commands.h"
#include "host/command/PPDChange.h"
#include "host/command/PrinterOptionsSearch.h"
#include "host/ppd/edit/Enabling.h"

namespace {

std::string NamesOf(const std::vector<PrinterOptions> &options) {
  std::string names;
  for (const PrinterOptions &bundle : options) names += (names.empty() ? "" : ", ") + bundle.name;
  return names;
}

int Run(const PPDChangeOptions &options) {
  Expected<std::vector<PrinterOptions>> found = FindPrinterOptions(options.plugin);
  if (!found) {
    Complain(found.message());
    return kFailed;
  }
  Expected<PPDToChange> ppd = TakePPD(options);
  if (!ppd) {
    Complain(ppd.message());
    return kFailed;
  }
  Expected<std::string> enabled = EnableOptions(ppd->text, *found);
  if (!enabled) {
    Complain(Localized("cannot enable %1: %2", {ppd->name, enabled.message()}));
    return kFailed;
  }
  return LeavePPD(options, *ppd, *enabled, "with the printer options of " + NamesOf(*found));
}

}  // namespace

int Enable(const PPDChangeOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
