#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/base/Text.h"
#include "host/base/WholeFile.h"
#include "host/command/Commands.h"
#include "host/command/Display.h"
#include "host/command/JobSettings.h"
#include "host/command/ScriptedJob.h"
#include "host/cups/RequestId.h"
#import "host/dialog/Controls.h"
#include "host/dialog/PrintDialog.h"
#include "host/dialog/Prompt.h"
#include "host/dialog/RememberedPreview.h"
#include "host/job/JobFiles.h"
#include "host/ppd/PPDSource.h"
#include "host/presets/Ticket.h"

namespace {

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

int Finish(const ShowOptions &options, PrintDialog &dialog, DialogEnd end) {
  std::vector<Failure> failures;
  PanelReport report;
  if (end == DialogEnd::kAccepted) {
    Expected<PanelReport> made = ReportOn(dialog.session());
    if (!made) {
      Complain(made.message());
      return kFailed;
    }
    report = std::move(*made);
  }
  if (!options.ticket.empty()) {
    if (auto written = WriteTicket(options.ticket, dialog.session().settings())) {
      report.ticket = options.ticket.string();
    } else {
      failures.push_back(written.failure());
    }
  }
  if (!options.snapshot.empty()) {
    if (auto written = WritePicture(options.snapshot, dialog.view())) {
      report.snapshot = options.snapshot.string();
    } else {
      failures.push_back(written.failure());
    }
  }
  bool told = false;
  if (end == DialogEnd::kAccepted) {
    told = PrintResults(report.Text());
  } else {
    KeepAsLastUsed(dialog.session().settings());
    if (end == DialogEnd::kSaved) {
      told = PrintResults(dialog.saved().front().string() + '\n');
      return told && failures.empty() ? kDone : kFailed;
    }
    const std::string id = RequestId(dialog.queue().name, dialog.job_number());
    told = PrintResults("request id is " + id + '\n');
    if (end == DialogEnd::kJobFailed) failures.push_back({dialog.failure()});
  }
  for (const Failure &failure : failures) Complain(failure.message);
  return told && failures.empty() ? kDone : kFailed;
}

// Where the dialog cannot open.
int Refuse(const ShowOptions &options, const std::string &message) {
  Complain(message);
  if (options.alert && ConnectToDisplay()) Tell(Text(Sentence(message)));
  return kFailed;
}

int Run(const ShowOptions &options) {
  Expected<PrintDialogJob> job = OpenJob(options);
  if (!job) return Refuse(options, job.message());
  Expected<Extensions> extensions = Extensions::Load(options.plugin);
  if (!extensions) return Refuse(options, extensions.message());
  if (!ConnectToDisplay()) {
    Complain(
        Localized("there is no display to show a window on; set DISPLAY, or use `pdeprint print` "
                  "or `pdeprint settings`, which need none"));
    return kFailed;
  }
  PrintDialog dialog(std::move(*job), *extensions, PresetStore::OfUser());
  const DialogEnd end = dialog.Run();
  if (end != DialogEnd::kCanceled) return Finish(options, dialog, end);
  Complain(dialog.has_sent() ? Localized("canceled")
                             : Localized("canceled; nothing was printed or saved"));
  return kFailed;
}

}  // namespace

int Show(const ShowOptions &options) {
  @autoreleasepool {
    return Run(options);
  }
}
