#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/command/Commands.h"
#include "host/command/FilterCheck.h"
#include "host/command/PPDChange.h"
#include "host/command/PrinterOptionsSearch.h"
#include "host/ppd/edit/Enabling.h"

namespace {

std::string NamesOf(const std::vector<PrinterOptions> &options) {
  std::string names;
  for (const PrinterOptions &bundle : options) names += (names.empty() ? "" : ", ") + bundle.name;
  return names;
}

Expected<ChangedPPD> Enabled(const PPDChangeOptions &options,
                             const std::vector<PrinterOptions> &bundles, const PPDToChange &ppd) {
  Expected<EnabledPPD> enabled = EnableOptions(ppd.text, bundles, options.method);
  if (!enabled) return enabled.failure();
  ChangedPPD changed{.text = std::move(enabled->text),
                     .change = "with the printer options of " + NamesOf(bundles),
                     .notes = {}};
  if (enabled->filter.empty()) return changed;
  changed.change += " and the filter " + enabled->filter;
  Expected<std::vector<std::string>> notes = CheckFilters(
      options, !ppd.queue.empty(), {enabled->filter, enabled->picture_filter}, changed.text);
  if (!notes) return notes.failure();
  changed.notes = std::move(*notes);
  return changed;
}

int Run(const PPDChangeOptions &options) {
  const Expected<std::vector<PrinterOptions>> bundles = FindPrinterOptions(options.plugin);
  if (!bundles) {
    Complain(bundles.message());
    return kFailed;
  }
  return ChangePPDs(
      options, {.make = [&](const PPDToChange &ppd) { return Enabled(options, *bundles, ppd); },
                .refusal =
                    [](const std::string &name, const std::string &reason) {
                      return Localized("cannot enable %1: %2", {name, reason});
                    }});
}

}  // namespace

int Enable(const PPDChangeOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
