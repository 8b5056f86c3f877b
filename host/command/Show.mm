#include <atomic>
#include <optional>

#include "host/base/Interruption.h"
#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/OneLine.h"
#include "host/base/Process.h"
#include "host/base/Text.h"
#include "host/base/WholeFile.h"
#include "host/command/Commands.h"
#include "host/command/Display.h"
#include "host/command/JobSettings.h"
#include "host/command/ScriptedJob.h"
#include "host/command/ShowReport.h"
#include "host/cups/RequestId.h"
#import "host/dialog/Controls.h"
#include "host/dialog/PrintDialog.h"
#include "host/dialog/Prompt.h"
#include "host/dialog/RememberedPreview.h"
#include "host/job/JobFiles.h"
#include "host/ppd/PPDSource.h"
#include "host/presets/Ticket.h"
#include "host/session/panels/Orientation.h"

namespace {

using Outcome = ShowReport::Outcome;

// Of what other programs say, in characters.
constexpr size_t kLongestTitle = 120;
constexpr size_t kLongestName = 40;

Expected<PrintDialogJob> OpenJob(const ShowOptions &options) {
  PrintDialogJob job;
  if (auto done = CheckFiles(options.files); !done) return done.failure();
  if (!options.ppd.empty()) {
    Expected<PPDFile> ppd = OpenPPD(options.ppd);
    if (!ppd)
      return Failure{Localized("cannot read %1: %2", {options.ppd.string(), ppd.message()})};
    job.ppd = std::move(*ppd);
  }
  Expected<PrintSettings> settings = SettingsToBeginWith(options);
  if (!settings) return settings.failure();
  job.queue = options.queue;
  job.settings = std::move(*settings);
  job.preset = options.ticket.empty() ? options.preset : "";
  job.files = options.files;
  job.title = ShortLine(options.title, kLongestTitle);
  job.application = ShortLine(options.application, kLongestName);
  job.accept_label = ShortLine(options.accept_label, kLongestName);
  job.parent = options.parent;
  job.shows_preview = WantsPreview();
  job.waits = options.wait;
  job.limit = options.limit;
  return job;
}

Expected<void> WritePicture(const std::filesystem::path &path, NSView *view) {
  NSData *picture = PictureOfView(view);
  if (picture == nil) return Failure{Localized("cannot take a picture of the dialog")};
  return WriteWholeFile(
      path, std::string_view(static_cast<const char *>([picture bytes]), [picture length]));
}

// What the last job used is a convenience: that it cannot be kept is said, and no failure.
void KeepAsLastUsed(PMPrintSettings settings) {
  Expected<std::filesystem::path> path = PresetStore::OfUser().LastUsedPathForWriting();
  const Expected<void> kept = path ? WriteTicket(*path, settings) : path.failure();
  if (kept) return;
  Note(Localized("the settings are not kept as %1: %2", {Quoted(kLastUsed), kept.message()}));
}

Expected<ShownJob> JobOf(const ShowOptions &options, PrintDialog &dialog) {
  JobSession &session = dialog.session();
  Expected<JobOptions> settings = session.OwnOptions();
  if (!settings) return settings.failure();
  Expected<JobOptions> job = session.Options();
  if (!job) return job.failure();
  Expected<JobOptions> choices = session.Choices();
  if (!choices) return choices.failure();
  ShownJob shown{.queue = options.ppd.empty() ? dialog.queue().name : "",
                 .paper = std::nullopt,
                 .is_landscape = IsLandscape(*job),
                 .settings = std::move(*settings)};
  const auto size = choices->find("PageSize");
  if (size == choices->end()) return shown;
  if (const std::optional<Paper> paper = PaperOf(*session.ppd(), size->second)) {
    shown.paper = {size->second, *paper};
  }
  return shown;
}

// What was done stays, and is said, also where something else has failed.
int Report(const ShowOptions &options, ShowReport report, const std::string &text,
           const std::vector<Failure> &failures) {
  if (!failures.empty()) {
    report.outcome = Outcome::kFailed;
    report.reason = failures.front().message;
  }
  const bool told = PrintResults(options.json ? report.Json() : text);
  for (const Failure &failure : failures) Complain(failure.message);
  return told && failures.empty() ? kDone : kFailed;
}

int FinishCanceled(const ShowOptions &options, const PrintDialog &dialog) {
  const bool told = !options.json || PrintResults(ShowReport{.outcome = Outcome::kCanceled}.Json());
  Complain(dialog.has_sent() ? Localized("canceled")
                             : Localized("canceled; nothing was printed or saved"));
  return options.json && told ? kCanceled : kFailed;
}

int Finish(const ShowOptions &options, PrintDialog &dialog, DialogEnd end) {
  if (end == DialogEnd::kCanceled) return FinishCanceled(options, dialog);
  std::vector<Failure> failures;
  ShowReport report;
  PanelReport panels;
  if (end == DialogEnd::kAccepted) {
    Expected<PanelReport> made = ReportOn(dialog.session());
    if (!made) return Report(options, {}, "", {made.failure()});
    panels = std::move(*made);
  }
  if (options.json) {
    if (Expected<ShownJob> shown = JobOf(options, dialog)) {
      report.shown = std::move(*shown);
    } else {
      failures.push_back(shown.failure());
    }
  }
  if (!options.ticket.empty()) {
    if (auto written = WriteTicket(options.ticket, dialog.session().settings())) {
      panels.ticket = options.ticket.string();
    } else {
      failures.push_back(written.failure());
    }
  }
  if (!options.snapshot.empty()) {
    if (auto written = WritePicture(options.snapshot, dialog.view())) {
      panels.snapshot = options.snapshot.string();
    } else {
      failures.push_back(written.failure());
    }
  }
  if (end == DialogEnd::kAccepted) {
    report.outcome = Outcome::kAccepted;
    return Report(options, report, panels.Text(), failures);
  }
  KeepAsLastUsed(dialog.session().settings());
  if (end == DialogEnd::kSaved) {
    report.outcome = Outcome::kSaved;
    report.files = dialog.saved();
    return Report(options, report, dialog.saved().front().string() + '\n', failures);
  }
  report.outcome = Outcome::kPrinted;
  report.job = dialog.job_number();
  if (end == DialogEnd::kJobFailed) failures.push_back({dialog.failure()});
  const std::string id = RequestId(dialog.queue().name, dialog.job_number());
  return Report(options, report, "request id is " + id + '\n', failures);
}

// Where the dialog cannot open.
int Refuse(const ShowOptions &options, const std::string &message) {
  const int status = Report(options, {}, "", {{message}});
  if (options.alert && ConnectToDisplay()) Tell(Text(Sentence(message)));
  return status;
}

int Run(const ShowOptions &options) {
  std::atomic<bool> closes = false;
  std::optional<Interruption> interruption;
  if (options.json) interruption.emplace(closes);
  const auto refuse = [&](const std::string &message) {
    interruption.reset();
    return Refuse(options, message);
  };
  Expected<PrintDialogJob> job = OpenJob(options);
  if (!job) return refuse(job.message());
  Expected<Extensions> extensions = Extensions::Load(options.plugin);
  if (!extensions) return refuse(extensions.message());
  if (!ConnectToDisplay()) {
    const std::string message =
        Localized("there is no display to show a window on; set DISPLAY, or use `pdeprint print` "
                  "or `pdeprint settings`, which need none");
    return Report(options, {}, "", {{message}});
  }
  if (options.json) job->closes = &closes;
  PrintDialog dialog(std::move(*job), *extensions, PresetStore::OfUser());
  return Finish(options, dialog, dialog.Run());
}

}  // namespace

int Show(const ShowOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
