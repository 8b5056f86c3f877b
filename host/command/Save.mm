#include <unistd.h>

#include <iostream>

#include "host/base/BackgroundTask.h"
#include "host/base/Interruption.h"
#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"
#include "host/command/Refusal.h"
#include "host/command/ScriptedJob.h"
#include "host/pages/SavePages.h"

namespace {

constexpr std::chrono::milliseconds kBetweenWords(200);
constexpr std::chrono::seconds kPatience(1);  // before anything is said

// On a terminal, where work takes its time: one line that changes.
class ProgressLine {
 public:
  ~ProgressLine() {
    if (is_shown_) std::cerr << "\r\033[K" << std::flush;
  }
  void Show(const SavingProgress &progress) {
    if (isatty(STDERR_FILENO) == 0 || std::chrono::steady_clock::now() < begin_ + kPatience) return;
    const int pages = progress.pages;
    const std::string text =
        pages == 0 ? Localized("Preparing the pages…")
                   : Localized("Drawing the pages: %1 of %2",
                               {std::to_string(progress.drawn), std::to_string(pages)});
    std::cerr << '\r' << text << "\033[K" << std::flush;
    is_shown_ = true;
  }

 private:
  const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  bool is_shown_ = false;
};

Expected<SavedPages> SaveInterruptibly(SaveRequest request) {
  const auto progress = std::make_shared<SavingProgress>();
  const Interruption interruption(progress->cancel);
  BackgroundTask<Expected<SavedPages>> task(
      [request = std::move(request), progress] { return SavePages(request, *progress); });
  ProgressLine line;
  while (!task.WaitFor(kBetweenWords)) line.Show(*progress);
  return task.Take();
}

bool IsRegularFile(const std::filesystem::path &path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

int Run(const SaveOptions &options, const ScriptedJob &job) {
  if (!options.png && !options.replaces && IsRegularFile(options.output)) {
    return Refuse({kFailed, Localized("nothing is saved: %1; --force replaces it",
                                      {IsThereAlready(options.output).message})});
  }
  Expected<PagesRequest> pages = job.session.PagesFor(options.files);
  if (!pages) return Refuse({kFailed, pages.message()});
  Expected<SavedPages> saved =
      SaveInterruptibly({.pages = std::move(*pages),
                         .out = options.output,
                         .dpi = options.png ? std::optional(options.dpi) : std::nullopt,
                         .existing = options.replaces ? Existing::kReplaced : Existing::kKept});
  if (!saved) return Refuse({kFailed, Localized("nothing is saved: %1", {saved.message()})});
  for (const std::string &note : saved->notes) Note(note);
  std::string text;
  for (const std::filesystem::path &file : saved->files) text += file.string() + '\n';
  return PrintResults(text) ? kDone : kFailed;
}

}  // namespace

int Save(const SaveOptions &options) {
  return WithFileJob(options, [&options](const ScriptedJob &job) { return Run(options, job); });
}
