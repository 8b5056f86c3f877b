// The print dialog: its window, and what happens in it.

#ifndef HOST_DIALOG_PRINTDIALOG_H
#define HOST_DIALOG_PRINTDIALOG_H

#import <Cocoa/Cocoa.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/cups/PrintServer.h"
#include "host/dialog/ActionTarget.h"
#import "host/dialog/DialogWindow.h"
#include "host/dialog/JobSender.h"
#include "host/dialog/PanelChooser.h"
#include "host/dialog/PasswordWindow.h"
#include "host/dialog/PresetChooser.h"
#import "host/dialog/PrintDialogView.h"
#include "host/dialog/PrinterChooser.h"
#import "host/dialog/WaitingView.h"
#include "host/extension/Extensions.h"
#include "host/presets/PresetStore.h"
#include "host/session/JobSession.h"

struct PrintDialogJob {
  std::string queue;           // empty: the default one, or else the first
  std::optional<PPDFile> ppd;  // instead of a queue's: no server is asked, and nothing printed
  PrintSettings settings;      // to begin with
  std::string preset;          // whose settings these are; empty: none's
  std::vector<std::filesystem::path> files;  // none: nothing is printed, the choices are accepted
  bool waits = false;                        // for the end of the job
  std::chrono::milliseconds limit{5000};     // for each of the server's answers
};

enum class DialogEnd {
  kCanceled,
  kAccepted,  // the choices hold; nothing was to be printed
  kPrinted,   // the server has taken the job; where that is waited for, it is complete
  kJobFailed  // the server has taken the job, but it was canceled or aborted, or not waited for
};

// Everything is called on the main thread. Nothing but presets is changed outside the process
// before the end.
class PrintDialog {
 public:
  // The bundles must outlive the dialog.
  PrintDialog(PrintDialogJob job, Extensions &extensions, PresetStore presets);
  ~PrintDialog();
  PrintDialog(const PrintDialog &) = delete;
  PrintDialog &operator=(const PrintDialog &) = delete;

  // Shows the window and handles events until it is closed.
  DialogEnd Run();

  // For pictures and tests: shows the window; handles no events.
  void Open();
  bool HasEnded() const { return end_.has_value(); }
  NSWindow *window() const { return window_.get(); }
  PrintDialogView *view() const { return view_.get(); }

  // After the end.
  JobSession &session() { return session_; }
  const Queue &queue() const { return queue_; }
  int job_number() const { return job_number_; }
  bool has_sent() const { return has_sent_; }  // or has tried to
  // Of a job that failed, what has become of it: "ID was canceled: REASON".
  const std::string &failure() const { return failure_; }

 private:
  enum class Phase { kNoPrinter, kReady, kSending, kWaitingForEnd };

  void TieControls();
  void UsePrinter(const Queue &queue, std::optional<PPDFile> ppd);
  void ShowQuestion(const std::string &question);
  void ShowNoAnswer(const std::string &reason);
  void ChoosePrinter();
  void ApplySettings(PrintSettings settings);

  void ShowFields();
  void ShowFieldsNotTyped();
  Expected<void> TakeFields();
  std::vector<SummarySection> JobSummary();
  PMPrintSettings SettingsToSave();

  void Accept();
  bool IsReadyToPrint();
  bool AskAboutConflicts(const std::string &chosen);
  void Send();
  void ShowRefusal(const std::string &reason);
  void Cancel();
  void End(DialogEnd end);

  void AfterThisEvent(std::function<void()> work);
  void SetPhase(Phase phase);
  void ShowNotes(Notes notes);
  void AddNote(const std::string &note);
  void ShowNotices();
  void TellOfLeftOut();
  void FitWindow();

  PrintDialogJob job_;
  Extensions &extensions_;
  JobSession session_;
  Retained<PrintDialogView *> view_;
  Retained<DialogWindow *> window_;
  Retained<WaitingView *> waiting_;
  Actions actions_;
  std::set<std::string> presets_left_out_;  // and why
  PanelChooser panels_;
  PresetChooser presets_;
  PasswordWindow passwords_;
  PrinterChooser printers_;
  JobSender sender_;

  Poller later_;
  std::string shown_copies_;  // in the fields, before anything was typed
  std::string shown_pages_;
  Phase phase_ = Phase::kNoPrinter;
  Queue queue_;
  std::optional<DialogEnd> end_;
  int job_number_ = 0;
  bool has_sent_ = false;
  std::string failure_;
  Notes notes_;  // of what happened last
  size_t left_out_told_ = 0;
  std::set<std::set<std::string>> conflicts_shown_;
  NSSize fitted_size_ = NSZeroSize;
};

#endif
