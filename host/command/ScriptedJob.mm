#include "host/command/ScriptedJob.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Text.h"
#include "host/command/JobSettings.h"
#include "host/command/Printer.h"
#include "host/command/SettingChanges.h"
#include "host/job/OptionFit.h"
#include "host/job/PageRanges.h"
#include "host/job/SettingOptions.h"
#include "host/job/SettingValues.h"

namespace {

struct Refusal {
  ExitStatus status;
  std::string message;
};

Expected<void> Store(PMPrintSettings settings, const std::string &keyword,
                     const std::string &value) {
  NSString *key = [NSString stringWithUTF8String:keyword.c_str()];
  Expected<Change> change = SetValue(settings, key, [NSString stringWithUTF8String:value.c_str()]);
  if (!change) return change.failure();
  if (*change == Change::kLocked) return IsLocked(key);
  return {};
}

// As the server takes page ranges: in rising order, without blanks.
Expected<void> SortPages(PMPrintSettings settings) {
  Expected<std::optional<std::string>> pages = JobOptionFromSettings(settings, "page-ranges");
  if (!pages) return pages.failure();
  if (!*pages) return {};
  Expected<std::string> sorted = ParsePageRanges(**pages);
  if (!sorted || *sorted == **pages) return {};
  return Store(settings, "page-ranges", *sorted);
}

Expected<void> Apply(const std::vector<SettingChange> &changes, PMPrintSettings settings) {
  for (const SettingChange &change : changes) {
    if (auto done = Store(settings, change.key, change.value); !done) return done;
  }
  return SortPages(settings);
}

// Panels take what is stored under their keys for strings. The name of a key whose value is none.
Expected<std::optional<std::string>> KeyWithoutString(const std::vector<Setting> &settings,
                                                      PMPrintSettings values) {
  for (const Setting &setting : settings) {
    Expected<Retained<id>> value =
        ValueOf(values, [NSString stringWithUTF8String:setting.key.c_str()]);
    if (!value) return value.failure();
    if (value->get() == nil || [value->get() isKindOfClass:[NSString class]]) continue;
    return std::optional(setting.key);
  }
  return std::optional<std::string>();
}

// The preset, the ticket.
std::string NameOfBeginning(const JobSource &source) {
  std::string name = source.preset.empty() ? "" : Quoted(source.preset);
  if (!source.ticket.empty()) name += (name.empty() ? "" : ", ") + source.ticket.string();
  return name;
}

// What a printer makes of a value that it does not know is not what was asked for. A panel's own
// setting that this printer cannot do, as a color stored for another printer, is for the panel to
// correct.
std::optional<Refusal> ReasonAgainstValues(const JobOptions &options,
                                           const std::vector<Setting> &settings,
                                           const PPDFile *ppd) {
  const auto refusal = [&options](const std::string &keyword, const std::string &reason,
                                  const std::string &name) {
    return Refusal{kFailed, Localized("the job's %1 is %2: %3; mend it with --set %4=VALUE",
                                      {keyword, Quoted(options.at(keyword)), reason, name})};
  };
  for (const Setting &setting : SettingsWithBadValues(settings, options)) {
    return refusal(setting.key, setting.Demand(), setting.name);
  }
  for (const UnfitOption &unfit : UnfitOptions(options, ppd, {})) {
    if (std::ranges::count(settings, unfit.keyword, &Setting::key) != 0) continue;
    return refusal(unfit.keyword, unfit.reason, unfit.keyword);
  }
  return std::nullopt;
}

// A setting that the printer does not have is taken away from a ticket, which may be another
// printer's. Asking for it here is wrong usage, as it is for one that a panel has locked.
std::optional<Refusal> ReasonAgainstChanges(const std::vector<SettingChange> &changes,
                                            const JobOptions &asked, const JobSession &session) {
  for (const SettingChange &change : changes) {
    const std::string now = session.Value(change.key);
    if (now == asked.at(change.key)) continue;
    const std::string reason = now.empty() ? Localized("this printer has no %1", {change.key})
                                           : Localized("it must be %1", {now});
    return Refusal{kWrongUsage,
                   Localized("%1 cannot be %2: %3", {change.name, Quoted(change.value), reason})};
  }
  return std::nullopt;
}

// The panels correct what the printer cannot do. Of a stored value that is noted; a value that was
// asked for here is wrong usage.
std::optional<Refusal> ExplainCorrections(const JobOptions &before, const JobOptions &after,
                                          const std::vector<SettingChange> &changes) {
  for (const auto &[key, value] : before) {
    const auto now = after.find(key);
    const std::string corrected = now == after.end() ? "" : now->second;
    if (corrected == value) continue;
    for (const SettingChange &change : changes) {
      if (change.key != key) continue;
      const std::string demand = corrected.empty() ? Localized("it must be unset")
                                                   : Localized("it must be %1", {corrected});
      return Refusal{kWrongUsage, Localized("%1 cannot be %2 on this printer: %3",
                                            {change.name, Quoted(value), demand})};
    }
    const std::string given = key + "=" + value;
    Note(corrected.empty()
             ? Localized("this printer cannot do %1; it is now unset", {given})
             : Localized("this printer cannot do %1; it is now %2", {given, corrected}));
  }
  return std::nullopt;
}

std::string Described(const PPDOption &option) {
  return option.keyword + ' ' + option.choices.front().keyword;
}

void ComplainOfLeftOut(const Extensions &extensions) {
  for (const LeftOut &one : extensions.left_out()) {
    Note(Localized("%1 is left out: %2", {one.name, one.reason}));
  }
}

int Refuse(const Refusal &refusal) {
  Complain(refusal.message);
  return refusal.status;
}

int Run(const JobSource &source, const std::vector<std::string> &texts,
        const std::function<int(const ScriptedJob &)> &work) {
  Expected<Printer> printer = OpenPrinter(source);
  if (!printer) return Refuse({kFailed, printer.message()});
  Expected<PrintSettings> settings = SettingsToBeginWith(source);
  if (!settings) return Refuse({kFailed, settings.message()});
  Expected<Extensions> extensions = Extensions::Load(source.plugin);
  if (!extensions) return Refuse({kFailed, extensions.message()});
  if (printer->ppd) extensions->LoadNamedBy(*printer->ppd);

  const std::vector<Setting> known = extensions->Settings();
  Expected<std::optional<std::string>> key = KeyWithoutString(known, settings->get());
  if (!key) return Refuse({kFailed, key.message()});
  if (*key) {
    return Refuse({kFailed, Localized("cannot use %1: the value of %2 is not a string",
                                      {NameOfBeginning(source), **key})});
  }
  const PPDFile *ppd = printer->ppd ? &*printer->ppd : nullptr;
  Expected<std::vector<SettingChange>> changes = ParseSettingChanges(texts, known, ppd);
  if (!changes) {
    if (known.empty()) ComplainOfLeftOut(*extensions);  // the setting may be theirs
    return Refuse({kWrongUsage, changes.message()});
  }
  if (const auto applied = Apply(*changes, settings->get()); !applied) {
    return Refuse({kFailed, applied.message()});
  }
  Expected<JobOptions> asked = JobOptionsFromSettings(settings->get());
  if (!asked) return Refuse({kFailed, asked.message()});
  if (const auto refusal = ReasonAgainstValues(*asked, known, ppd)) return Refuse(*refusal);

  JobSession session(*extensions);
  Notes notes = session.UsePrinter(std::move(printer->ppd), printer->queue.defaults);
  std::ranges::move(session.UseSettings(std::move(*settings)), std::back_inserter(notes));
  const auto refused_change = ReasonAgainstChanges(*changes, *asked, session);
  if (session.fault()) return Refuse({kFailed, session.fault()->message});
  if (refused_change) return Refuse(*refused_change);
  for (const std::string &note : notes) Note(note);
  if (session.ppd() != nullptr) {
    for (const PPDConflict &conflict : session.ppd()->Conflicts(session.Options())) {
      Note(Localized("%1 and %2 cannot be combined on this printer",
                     {Described(conflict.first), Described(conflict.second)}));
    }
  }
  const JobOptions before = session.OwnOptions();
  const Expected<void> printable = session.CheckPrintable();
  session.DropFaultyPanels();
  ComplainOfLeftOut(*extensions);
  const JobOptions after = session.OwnOptions();
  if (session.fault()) return Refuse({kFailed, session.fault()->message});
  if (const auto refusal = ExplainCorrections(before, after, *changes)) return Refuse(*refusal);
  if (!printable) return Refuse({kFailed, printable.message()});
  return work({printer->name, printer->queue, session});
}

}  // namespace

int WithScriptedJob(const JobSource &source, const std::vector<std::string> &changes,
                    const std::function<int(const ScriptedJob &)> &work) {
  @autoreleasepool {
    return Run(source, changes, work);
  }
}

PanelReport ReportOn(JobSession &session) {
  PanelReport report;
  for (const auto &[panel, lines] : session.Summary()) {
    report.panel += (report.panel.empty() ? "" : ", ") + panel;
    report.summary.insert(report.summary.end(), lines.begin(), lines.end());
  }
  report.options = session.OwnOptions();
  return report;
}
