#include "host/command/ScriptedJob.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/command/Corrections.h"
#include "host/command/JobSettings.h"
#include "host/command/Printer.h"
#include "host/command/SettingChanges.h"
#include "host/command/StoredSettings.h"
#include "host/job/JobFiles.h"
#include "host/job/PageRanges.h"
#include "host/job/SettingValues.h"

namespace {

NSString *String(const std::string &text) { return [NSString stringWithUTF8String:text.c_str()]; }

bool IsOfCopies(const std::string &change) { return change.starts_with("copies="); }

Expected<void> Apply(const std::vector<SettingChange> &changes, PMPrintSettings settings) {
  for (const SettingChange &change : changes) {
    Expected<Change> made = SetValue(settings, String(change.key), String(change.value));
    if (!made) return made.failure();
    if (*made == Change::kLocked) return IsLocked(String(change.key));
  }
  return {};
}

std::string Described(const PPDOption &option) {
  return option.keyword + ' ' + option.choices.front().keyword;
}

void ComplainOfLeftOut(const Extensions &extensions) {
  for (const LeftOut &one : extensions.left_out()) {
    Note(Localized("%1 is left out: %2", {one.name, one.reason}));
  }
}

void NoteConflicts(const PPDFile &ppd, const JobOptions &options) {
  for (const PPDConflict &conflict : ppd.Conflicts(options)) {
    Note(Localized("%1 and %2 cannot be combined on this printer",
                   {Described(conflict.first), Described(conflict.second)}));
  }
}

// Has the panels correct the job, and checks what has become of it.
std::optional<Refusal> Complete(JobSession &session, const Extensions &extensions,
                                const std::vector<SettingChange> &changes) {
  Expected<JobOptions> before = session.OwnOptions();
  if (!before) return Refusal{kFailed, before.message()};
  const Expected<void> printable = session.CheckPrintable();
  session.DropFaultyPanels();
  ComplainOfLeftOut(extensions);
  Expected<JobOptions> after = session.OwnOptions();
  if (!after) return Refusal{kFailed, after.message()};
  if (auto refusal = ExplainCorrections(*before, *after, changes)) return refusal;
  if (!printable) return Refusal{kFailed, printable.message()};
  return std::nullopt;
}

// Gives the session the settings with the changes.
std::optional<Refusal> Begin(JobSession &session, PrintSettings settings, const JobSource &source,
                             const std::vector<SettingChange> &changes, Notes notes) {
  if (auto applied = Apply(changes, settings.get()); !applied) {
    return Refusal{kFailed, applied.message()};
  }
  if (auto stored = CheckStored(settings.get(), session.check(), source); !stored) {
    return Refusal{kFailed, stored.message()};
  }
  Expected<Notes> more = session.UseSettings(std::move(settings));
  if (!more) return Refusal{kFailed, more.message()};
  Expected<JobOptions> own = session.OwnOptions();
  if (!own) return Refusal{kFailed, own.message()};
  if (auto refusal = ReasonAgainstChanges(changes, *own)) return refusal;
  notes.insert(notes.end(), more->begin(), more->end());
  for (const SettingChange &change : changes) {
    if (!change.note.empty()) notes.push_back(change.note);
  }
  for (const std::string &note : notes) Note(note);
  Expected<JobOptions> options = session.Options();
  if (!options) return Refusal{kFailed, options.message()};
  if (session.ppd() != nullptr) NoteConflicts(*session.ppd(), *options);
  return std::nullopt;
}

int Run(const JobSource &source, const std::vector<std::string> &texts,
        const std::function<int(const ScriptedJob &)> &work) {
  Expected<Printer> printer = OpenPrinter(source);
  if (!printer) return Refuse({kFailed, printer.message()});
  Expected<PrintSettings> settings = SettingsToBeginWith(source);
  if (!settings) return Refuse({kFailed, settings.message()});
  Expected<Extensions> extensions = Extensions::Load(source.plugin);
  if (!extensions) return Refuse({kFailed, extensions.message()});

  JobSession session(*extensions);
  Expected<Notes> notes =
      session.UsePrinter(std::move(printer->ppd), printer->queue.defaults, printer->queue.offered,
                         printer->queue.formats, printer->queue.of_user);
  if (!notes) return Refuse({kFailed, notes.message()});
  Expected<std::vector<SettingChange>> changes = ParseSettingChanges(texts, session.check());
  if (!changes) {
    if (extensions->Settings().empty()) ComplainOfLeftOut(*extensions);  // it may be theirs
    if (!session.why_not_here().empty()) {
      Note(Localized("no panel for %1: %2", {printer->name, session.ReasonForNoPanel()}));
    }
    return Refuse({kWrongUsage, changes.message()});
  }
  if (auto refusal = Begin(session, std::move(*settings), source, *changes, *notes)) {
    return Refuse(*refusal);
  }
  if (auto refusal = Complete(session, *extensions, *changes)) return Refuse(*refusal);
  return work({printer->name, printer->queue, session});
}

}  // namespace

int WithScriptedJob(const JobSource &source, const std::vector<std::string> &changes,
                    const std::function<int(const ScriptedJob &)> &work) {
  @autoreleasepool {
    return Run(source, changes, work);
  }
}

int WithFileJob(const FileJobOptions &options,
                const std::function<int(const ScriptedJob &)> &work) {
  if (auto done = CheckFiles(options.files); !done) return Refuse({kFailed, done.message()});
  std::error_code error;
  if (!options.ticket.empty() && !std::filesystem::exists(options.ticket, error)) {
    return Refuse({kFailed, Localized("cannot read ticket %1: %2",
                                      {options.ticket.string(), Localized("no such file")})});
  }
  std::vector<std::string> changes = options.set;
  if (!options.copies.empty()) {
    if (std::ranges::any_of(changes, IsOfCopies)) {
      return Refuse({kWrongUsage,
                     Localized("the copies are given twice, with --copies and with --set copies; "
                               "leave one of them out")});
    }
    Expected<std::string> copies = ParseCopies(options.copies);
    if (!copies) return Refuse({kWrongUsage, "--copies: " + copies.message()});
    changes.push_back("copies=" + *copies);
  }
  return WithScriptedJob(options, changes, work);
}

Expected<PanelReport> ReportOn(JobSession &session) {
  PanelReport report;
  for (const auto &[panel, lines] : session.Summary()) {
    report.panel += (report.panel.empty() ? "" : ", ") + panel;
    report.summary.insert(report.summary.end(), lines.begin(), lines.end());
  }
  Expected<JobOptions> options = session.OwnOptions();
  if (!options) return options.failure();
  report.options = std::move(*options);
  return report;
}
