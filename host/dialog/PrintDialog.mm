#include "host/dialog/PrintDialog.h"

#include <utility>

#include "host/base/Interruption.h"
#include "host/base/Localized.h"
#include "host/base/Messages.h"
#import "host/dialog/Controls.h"
#import "host/dialog/Prompt.h"
#include "host/dialog/RememberedPreview.h"
#include "host/dialog/SavePlace.h"
#include "host/job/JobFiles.h"

namespace {

const CGFloat kWaitingWidth = 480;  // fits into the smallest window

Retained<PrintDialogView *> NewView() {
  return Retained<PrintDialogView *>::Adopt(
      [[PrintDialogView alloc] initWithFrame:NSMakeRect(0, 0, 560, 480)]);
}

Retained<DialogWindow *> NewWindow(const PrintDialogJob &job, NSView *view) {
  std::string named = job.title.empty() ? TitleOfJob(job.files) : job.title;
  if (!named.empty() && !job.application.empty()) named += " — ";
  named += job.application;
  const std::string title =
      named.empty() ? Localized("Print Settings") : Localized("Print — %1", {named});
  DialogWindow *const window = [[DialogWindow alloc] initWithTitle:String(title)
                                                              view:view
                                                         resizable:YES];
  if (job.parent != 0) [window makeDialogOfWindow:job.parent];
  return Retained<DialogWindow *>::Adopt(window);
}

Retained<WaitingView *> NewWaitingView() {
  return Retained<WaitingView *>::Adopt([[WaitingView alloc] initWithWidth:kWaitingWidth]);
}

}  // namespace

PrintDialog::PrintDialog(PrintDialogJob job, Extensions &extensions, PresetStore presets)
    : job_(std::move(job)),
      session_(extensions),
      view_(NewView()),
      window_(NewWindow(job_, view_.get())),
      fitter_(window_.get(), view_.get()),
      waiting_(NewWaitingView()),
      notices_(extensions,
               [this](const std::string &text) {
                 [view_.get() setNotices:String(text)];
                 FitWindow();
               }),
      printers_(
          [view_.get() printers], PrintServer(job_.limit, passwords_.passwords()), passwords_,
          job_.queue,
          job_.files.empty() ? PrinterChooser::FileOffer::kNone : PrinterChooser::FileOffer::kPdf,
          CallbacksOfPrinters()),
      editor_(view_.get(), session_, notices_, std::move(presets), TitleOfJob(job_.files),
              CallbacksOfEditor()),
      delivery_(view_.get(), PrintServer(job_.limit, passwords_.passwords()), passwords_,
                job_.waits, CallbacksOfDelivery()) {
  TieControls();
  SetPhase(Phase::kNoPrinter);
  editor_.Open(std::move(job_.settings), job_.preset.empty() ? kDefaultSettings : job_.preset);
}

PrintDialog::~PrintDialog() {
  printers_.Stop();
  [window_.get() setAfterEvents:nullptr];
  // As long as the window is there: a pop-up that loses the focus closes its menu, for which the
  // platform asks the display for its windows, and of an answer without any it loses the memory.
  [window_.get() makeFirstResponder:nil];
  [window_.get() orderOut:nil];
}

PrinterChooser::Callbacks PrintDialog::CallbacksOfPrinters() {
  return {.asking = [this](const std::string &question) { ShowQuestion(question); },
          .failed = [this](const std::string &reason) { ShowNoAnswer(reason); },
          .answered = [this](const Queue &queue,
                             std::optional<PPDFile> ppd) { UsePrinter(queue, std::move(ppd)); }};
}

JobEditor::Callbacks PrintDialog::CallbacksOfEditor() {
  return {.panel_shown =
              [this] {
                FitWindow();
                LookAgain();
              },
          .changed = [this] { LookAgain(); },
          .printer_lost =
              [this](const std::string &reason) {
                SetPhase(Phase::kNoPrinter);
                ShowNoAnswer(reason);
              }};
}

JobDelivery::Callbacks PrintDialog::CallbacksOfDelivery() {
  return {.waiting = [this] { SetPhase(Phase::kWaitingForEnd); },
          .refused = [this](const std::string &reason) { ShowRefusal(reason); },
          .ended = [this](DialogEnd end) { End(end); }};
}

void PrintDialog::TieControls() {
  PrintDialogView *view = view_.get();
  actions_.Tie([waiting_.get() retry], [this] {
    [window_.get() makeFirstResponder:[view_.get() printers]];
    printers_.Retry();
  });
  actions_.Tie([view printers], [this] { ChoosePrinter(); });
  actions_.Tie([view help], [this] { ShowHelp(); });
  actions_.Tie([view cancel], [this] { Cancel(); });
  actions_.Tie([view print], [this] { Accept(); });
  actions_.TieClosing(window_.get(), [this] { Cancel(); });
  [[view print] setTitle:String(NameOfAccepting())];
}

std::string PrintDialog::NameOfAccepting() const {
  if (!job_.accept_label.empty()) return job_.accept_label;
  return job_.files.empty() ? Localized("Done") : Localized("Print");
}

void PrintDialog::OpenPreview() {
  if (job_.files.empty()) return;
  PrintDialogView *view = view_.get();
  preview_ = std::make_unique<Preview>([view addPreview],
                                       [this] { return editor_.PagesAsTheyStand(job_.files); });
  [view setShowsPreview:YES];
  const bool has_room = fitter_.HasRoom();
  [[view fold] setEnabled:has_room];
  if (!has_room) {
    [[view fold] setToolTip:String(Localized("The screen is too narrow for a preview"))];
  }
  [view setShowsPreview:NO];
  SetShowsPreview(has_room && job_.shows_preview);
  actions_.Tie([view fold], [this] {
    const bool shows = ![view_.get() showsPreview];
    SetShowsPreview(shows);
    RememberPreview(shows);
    FitWindow();
  });
  [window_.get() setAfterEvents:[this] { LookAgain(); }];
}

void PrintDialog::SetShowsPreview(bool shows) {
  [view_.get() setShowsPreview:shows];
  preview_->SetShown(shows);
}

void PrintDialog::LookAgain() {
  const bool can_change = phase_ == Phase::kNoPrinter || phase_ == Phase::kReady;
  if (preview_ != nullptr && can_change) preview_->Look();
}

void PrintDialog::Open() {
  [NSApp activateIgnoringOtherApps:YES];
  OpenPreview();
  if (job_.ppd) {
    OpenPrinterFromFile();
  } else {
    [window_.get() setInitialFirstResponder:[view_.get() printers]];
    printers_.AskForQueues();
  }
  FitWindow();
  [window_.get() center];
  [window_.get() makeKeyAndOrderFront:nil];
  AwaitClosing();
}

// Questions are answered as by Escape first, however many follow one another.
void PrintDialog::AwaitClosing() {
  if (job_.closes == nullptr) return;
  closing_ = Poller([this] {
    if (!*job_.closes || end_) return false;
    if ([NSApp modalWindow] == nil) {
      Cancel();
    } else {
      [NSApp stopModalWithCode:0];
      AwaitClosing();
    }
    return true;
  });
}

DialogEnd PrintDialog::Run() {
  Open();
  while (!end_) [DialogWindow handleNextEvent];
  return *end_;
}

void PrintDialog::OpenPrinterFromFile() {
  PrintDialogView *view = view_.get();
  Queue file;
  file.name = job_.ppd->Name();
  AddItem([view printers], String(file.name), nil);
  [[view printers] selectItemAtIndex:0];
  [[view printers] setEnabled:NO];
  [view setPrinterInfo:String(Localized("Printer description from a file; nothing is printed"))];
  UsePrinter(file, std::move(job_.ppd));
  NSView *first = [[view panelView] nextKeyView];
  [window_.get() setInitialFirstResponder:first != nil ? first : [view presets]];
}

void PrintDialog::ChoosePrinter() {
  if (!editor_.LeavePrinter()) return printers_.ShowAnswered();
  printers_.AskForChosen();
}

void PrintDialog::ShowQuestion(const std::string &question) {
  SetPhase(Phase::kNoPrinter);
  editor_.AwaitPrinter();
  [view_.get() setPrinterInfo:@""];
  [waiting_.get() showWaiting:String(question)];
  [view_.get() setPanelView:waiting_.get()];
}

void PrintDialog::ShowNoAnswer(const std::string &reason) {
  [waiting_.get() showFailure:Sentence(reason)];
  [view_.get() setPanelView:waiting_.get()];
  [window_.get() makeFirstResponder:[waiting_.get() retry]];
  Complain(reason);
}

void PrintDialog::UsePrinter(const Queue &queue, std::optional<PPDFile> ppd) {
  queue_ = queue;
  [view_.get() setPanelView:nil];
  const bool is_file = queue.name.empty();
  const std::string description =
      is_file ? Localized("The pages become a file; nothing is printed") : DescribeQueue(queue);
  if (!description.empty()) [view_.get() setPrinterInfo:String(description)];
  if (!job_.files.empty()) {
    [[view_.get() print] setTitle:String(is_file ? Localized("Save…") : NameOfAccepting())];
  }
  SetPhase(Phase::kReady);
  editor_.UsePrinter(queue, std::move(ppd));
}

void PrintDialog::Accept() {
  if (phase_ != Phase::kReady || !editor_.IsReadyToPrint()) return;
  if (job_.files.empty()) return End(DialogEnd::kAccepted);
  if (queue_.name.empty()) return SaveAsFile();
  Expected<JobRequest> request = session_.RequestFor(queue_.name, job_.files, job_.title);
  if (!request) return notices_.AddNote(request.message());
  SetPhase(Phase::kSending);
  delivery_.Begin(std::move(*request), session_.here());
}

void PrintDialog::SaveAsFile() {
  Expected<PagesRequest> pages = session_.PagesFor(job_.files, job_.title);
  if (!pages) return notices_.AddNote(pages.message());
  const std::optional<SavePlace> place = AskForPlace(job_.files.front());
  if (!place) return;
  SetPhase(Phase::kSending);
  delivery_.Save({.pages = std::move(*pages),
                  .out = place->path,
                  .dpi = std::nullopt,
                  .existing = place->existing});
}

void PrintDialog::ShowRefusal(const std::string &reason) {
  Complain(reason);
  if (Interruption::Came()) return End(DialogEnd::kCanceled);
  SetPhase(Phase::kReady);
  notices_.AddNote(queue_.name.empty() ? Localized("nothing is saved: %1", {reason})
                                       : Localized("not printed: %1", {reason}));
}

void PrintDialog::Cancel() {
  switch (phase_) {
    case Phase::kSending:
      return delivery_.TakeBack();
    case Phase::kWaitingForEnd:
      return delivery_.GiveUpWaiting();
    default:
      return End(DialogEnd::kCanceled);
  }
}

void PrintDialog::End(DialogEnd end) {
  printers_.Stop();
  passwords_.Close();
  [window_.get() setAfterEvents:nullptr];
  if (preview_ != nullptr) preview_->SetShown(false);
  const bool canceled = end == DialogEnd::kCanceled;
  for (const auto &panel : session_.panels()) panel->WindowWillClose(canceled);
  end_ = end;
}

void PrintDialog::SetPhase(Phase phase) {
  phase_ = phase;
  PrintDialogView *view = view_.get();
  const BOOL ready = phase == Phase::kReady;
  const BOOL busy = phase == Phase::kSending || phase == Phase::kWaitingForEnd;
  [[view print] setEnabled:ready];
  [[view panels] setEnabled:ready];
  for (NSControl *control in
       @[ [view presets], [view copies], [view copiesStepper], [view pages] ]) {
    [control setEnabled:!busy];
  }
  const BOOL has_choice =
      [[view printers] numberOfItems] > ([[view printers] indexOfSelectedItem] < 0 ? 0 : 1);
  if (!busy && has_choice) [[view printers] setEnabled:YES];
  if (busy) [[view printers] setEnabled:NO];
  [[view cancel]
      setTitle:String(phase == Phase::kWaitingForEnd ? Localized("Close") : Localized("Cancel"))];
  [view layOut];
}

void PrintDialog::ShowHelp() {
  if (!editor_.WantsHelp()) return;
  Tell(Localized("Choose a printer and what is printed above, and how it is printed on the "
                 "panels below. Presets keep all of these settings.\n\nReturn prints, Escape "
                 "cancels; Tab goes from control to control."));
}

void PrintDialog::FitWindow() { fitter_.Fit(editor_.PanelSize()); }
