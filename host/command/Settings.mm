#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"
#include "host/command/ScriptedJob.h"
#include "host/presets/Ticket.h"

namespace {

int Run(const SettingsOptions &options, const ScriptedJob &job) {
  JobSession &session = job.session;
  if (session.panels().empty()) {
    Complain(Localized("no panel for %1: %2", {job.printer, session.ReasonForNoPanel()}));
    return kFailed;
  }
  Expected<PanelReport> report = ReportOn(session);
  if (!report) {
    Complain(report.message());
    return kFailed;
  }
  if (!options.ticket.empty()) {
    if (auto written = WriteTicket(options.ticket, session.settings()); !written) {
      Complain(written.message());
      return kFailed;
    }
    report->ticket = options.ticket.string();
  }
  return PrintResults(options.json ? report->Json() : report->Text()) ? kDone : kFailed;
}

}  // namespace

int Settings(const SettingsOptions &options) {
  return WithScriptedJob(options, options.set,
                         [&options](const ScriptedJob &job) { return Run(options, job); });
}
