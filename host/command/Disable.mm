#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/command/Commands.h"
#include "host/command/PPDChange.h"
#include "host/command/PrinterOptionsSearch.h"
#include "host/ppd/PPDSource.h"
#include "host/ppd/edit/Enabling.h"

namespace {

// Why there is nothing to take out, as far as the bundles that are found tell.
std::string NothingToTakeOut(const PPDChangeOptions &options, const PPDToChange &ppd) {
  Expected<std::vector<PrinterOptions>> found = FindPrinterOptions(options.plugin);
  Expected<PPDFile> file = ParsePPD(ppd.text);
  if (found && file) {
    for (const PrinterOptions &bundle : *found) {
      if (!bundle.support_keyword.empty() && file->Attribute(bundle.support_keyword)) {
        return Localized(
            "the printer options of %1 are the maker's own, which stay: pdeprint has added nothing",
            {bundle.name});
      }
    }
  }
  return Localized("pdeprint has added nothing that could be taken out");
}

std::string Joined(const std::vector<std::string> &names) {
  std::string text;
  for (const std::string &name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

int Run(const PPDChangeOptions &options) {
  Expected<PPDToChange> ppd = TakePPD(options);
  if (!ppd) {
    Complain(ppd.message());
    return kFailed;
  }
  Expected<DisabledPPD> disabled = DisableOptions(ppd->text);
  if (!disabled) {
    Complain(Localized("cannot disable %1: %2", {ppd->name, disabled.message()}));
    return kFailed;
  }
  if (disabled->bundles.empty()) {
    Note(ppd->name + ": " + NothingToTakeOut(options, *ppd));
    return LeavePPD(options, *ppd, disabled->text, "unchanged");
  }
  return LeavePPD(options, *ppd, disabled->text,
                  "without the printer options of " + Joined(disabled->bundles));
}

}  // namespace

int Disable(const PPDChangeOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
