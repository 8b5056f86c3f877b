// The print dialog: its window, and what happens in it.

#ifndef HOST_DIALOG_PRINTDIALOG_H
#define HOST_DIALOG_PRINTDIALOG_H

#import <Cocoa/Cocoa.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Retained.h"
#include "host/cups/Queue.h"
#include "host/dialog/ActionTarget.h"
#import "host/dialog/DialogWindow.h"
#include "host/dialog/JobDelivery.h"
#include "host/dialog/JobEditor.h"
#include "host/dialog/Notices.h"
#include "host/dialog/PasswordWindow.h"
#include "host/dialog/Poller.h"
#include "host/dialog/Preview.h"
#include "host/dialog/PrintDialogJob.h"
#import "host/dialog/PrintDialogView.h"
#include "host/dialog/PrinterChooser.h"
#import "host/dialog/WaitingView.h"
#include "host/dialog/WindowFitter.h"
#include "host/extension/Extensions.h"
#include "host/presets/PresetStore.h"
#include "host/session/JobSession.h"

// The phases of a job: its printer is asked for (PrinterChooser), it is made up (JobEditor), it is
// printed (JobDelivery). These do not know of each other; what each of them comes to, and what the
// window then offers, is decided here.
//
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
  int job_number() const { return delivery_.job_number(); }
  bool has_sent() const { return delivery_.has_begun(); }             // or has tried to
  const std::string &failure() const { return delivery_.failure(); }  // of a job that failed
  const std::vector<std::filesystem::path> &saved() const { return delivery_.saved(); }

 private:
  // A printer is asked for, or did not answer; a job can be made up, and printed; it is being sent,
  // and can be taken back; its end is waited for.
  enum class Phase { kNoPrinter, kReady, kSending, kWaitingForEnd };
  void SetPhase(Phase phase);

  PrinterChooser::Callbacks CallbacksOfPrinters();
  JobEditor::Callbacks CallbacksOfEditor();
  JobDelivery::Callbacks CallbacksOfDelivery();
  void TieControls();

  void OpenPrinterFromFile();
  void ChoosePrinter();
  void ShowQuestion(const std::string &question);
  void ShowNoAnswer(const std::string &reason);
  void UsePrinter(const Queue &queue, std::optional<PPDFile> ppd);

  void Accept();
  void ShowRefusal(const std::string &reason);
  void Cancel();
  void End(DialogEnd end);

  void SaveAsFile();
  void OpenPreview();
  void SetShowsPreview(bool shows);
  void LookAgain();

  void ShowHelp();
  void AwaitClosing();
  std::string NameOfAccepting() const;
  void FitWindow();

  PrintDialogJob job_;
  JobSession session_;
  Retained<PrintDialogView *> view_;
  Retained<DialogWindow *> window_;
  WindowFitter fitter_;
  Retained<WaitingView *> waiting_;
  Actions actions_;
  Notices notices_;
  PasswordWindow passwords_;
  PrinterChooser printers_;
  JobEditor editor_;
  JobDelivery delivery_;
  std::unique_ptr<Preview> preview_;  // null: there is nothing to print

  Poller closing_;
  Phase phase_ = Phase::kNoPrinter;
  Queue queue_;
  std::optional<DialogEnd> end_;
};

#endif
