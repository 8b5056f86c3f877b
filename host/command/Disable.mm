#include "host/base/Localized.h"
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

Expected<ChangedPPD> Disabled(const PPDChangeOptions &options, const PPDToChange &ppd) {
  Expected<DisabledPPD> disabled = DisableOptions(ppd.text);
  if (!disabled) return disabled.failure();
  if (!disabled->bundles.empty()) {
    return ChangedPPD{.text = std::move(disabled->text),
                      .change = "without the printer options of " + Joined(disabled->bundles),
                      .notes = {}};
  }
  // Among all queues there are many of those.
  const std::string reason = NothingToTakeOut(options, ppd);
  ChangedPPD unchanged{.text = std::move(disabled->text), .change = reason, .notes = {}};
  if (options.all) return unchanged;
  unchanged.change = "unchanged";
  unchanged.notes.push_back(reason);
  return unchanged;
}

int Run(const PPDChangeOptions &options) {
  return ChangePPDs(options,
                    {.make = [&options](const PPDToChange &ppd) { return Disabled(options, ppd); },
                     .refusal =
                         [](const std::string &name, const std::string &reason) {
                           return Localized("cannot disable %1: %2", {name, reason});
                         }});
}

}  // namespace

int Disable(const PPDChangeOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
