// What a print dialog is opened with, and how it ends.

#ifndef HOST_DIALOG_PRINTDIALOGJOB_H
#define HOST_DIALOG_PRINTDIALOGJOB_H

#include <atomic>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/job/PrintSettings.h"
#include "host/ppd/PPDFile.h"

struct PrintDialogJob {
  std::string queue;           // empty: the default one, or else the first
  std::optional<PPDFile> ppd;  // instead of a queue's: no server is asked, and nothing printed
  PrintSettings settings;      // to begin with
  std::string preset;          // whose settings these are; empty: none's
  std::vector<std::filesystem::path> files;   // none: nothing is printed, the choices are accepted
  std::string title;                          // the document's; empty: the files' names
  std::string application;                    // for which this is done; empty: it is not said
  std::string accept_label;                   // of the button that Return presses; empty: the usual
  unsigned long parent = 0;                   // the X window of another program; 0: none
  const std::atomic<bool> *closes = nullptr;  // once it is set, the dialog is canceled; null: never
  bool shows_preview = false;                 // where there are files, and room on the screen
  bool waits = false;                         // for the end of the job
  std::chrono::milliseconds limit{5000};      // for each of the server's answers
};

enum class DialogEnd {
  kCanceled,
  kAccepted,  // the choices hold; nothing was to be printed
  kSaved,     // the pages are a file
  kPrinted,   // the server has taken the job; where that is waited for, it is complete
  kJobFailed  // the server has taken the job, but it was canceled or aborted, or not waited for
};

#endif
