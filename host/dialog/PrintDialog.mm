#include "host/dialog/PrintDialog.h"

#include <algorithm>
#include <utility>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/cups/RequestId.h"
#import "host/dialog/Controls.h"
#import "host/dialog/Prompt.h"
#include "host/job/JobFiles.h"
#include "host/job/PageRanges.h"

namespace {

// What most panels need; the window grows for a larger one.
const NSSize kUsualPanelSize = {520, 216};

const char kCopies[] = "copies";
const char kPageRanges[] = "page-ranges";
const char kAllPages[] = "1-9999";  // where the queue's default is fewer

Retained<PrintDialogView *> NewView() {
  return Retained<PrintDialogView *>::Adopt(
      [[PrintDialogView alloc] initWithFrame:NSMakeRect(0, 0, 560, 480)]);
}

// The two option choices, in an order of their own: a pair is the same pair the other way round.
std::set<std::string> Pair(const PPDConflict &conflict) {
  const auto name = [](const PPDOption &option) {
    return option.keyword + ' ' + option.choices.front().keyword;
  };
  return {name(conflict.first), name(conflict.second)};
}

std::string DescribeChoice(const PPDOption &option) {
  const PPDChoice &choice = option.choices.front();
  return option.text + " \"" + choice.text + "\" (" + option.keyword + ' ' + choice.keyword + ')';
}

// What is being typed counts; the focus stays.
void EndEditing(NSWindow *window) {
  id focus = [window firstResponder];
  if (![focus isKindOfClass:[NSText class]] || ![focus isFieldEditor]) return;
  id edited = [focus delegate];
  [window makeFirstResponder:window];
  if ([edited isKindOfClass:[NSView class]]) [window makeFirstResponder:edited];
}

}  // namespace

PrintDialog::PrintDialog(PrintDialogJob job, Extensions &extensions, PresetStore presets)
    : job_(std::move(job)),
      extensions_(extensions),
      session_(extensions),
      view_(NewView()),
      window_(Retained<DialogWindow *>::Adopt([[DialogWindow alloc]
          initWithTitle:String(job_.files.empty()
                                   ? Localized("Print Settings")
                                   : Localized("Print — %1", {TitleOfJob(job_.files)}))
                   view:view_.get()
              resizable:YES])),
      panels_(view_.get(), session_,
              {.shown = [this] { FitWindow(); },
               .panels_left_out = [this] { TellOfLeftOut(); },
               .refused = [this](const std::string &message) { AddNote(message); },
               .option_chosen =
                   [this](const std::string &keyword) {
                     AfterThisEvent([this, keyword] { AskAboutConflicts(keyword); });
                   },
               .job_summary = [this] { return JobSummary(); }}),
      presets_([view_.get() presets], std::move(presets),
               {
                 .apply = [this](PrintSettings settings) { ApplySettings(std::move(settings)); },
                 .settings_to_save = [this] { return SettingsToSave(); },
                 .tell = [this](const std::string &message) { AddNote(message); },
                 .left_out = [this](const std::string &message) {
                   if (presets_left_out_.insert(message).second) Complain(message);
                   ShowNotices();
                 }
               }),
      printers_(
          [view_.get() printers], PrintServer(job_.limit, passwords_.passwords()), passwords_,
          job_.queue,
          {.asking = [this](const std::string &question) { ShowQuestion(question); },
           .failed = [this](const std::string &reason) { ShowNoAnswer(reason); },
           .answered = [this](const Queue &queue,
                              std::optional<PPDFile> ppd) { UsePrinter(queue, std::move(ppd)); }}),
      sender_(PrintServer(job_.limit, passwords_.passwords()), passwords_,
              {.sending =
                   [this](double fraction) {
                     [view_.get() setProgressText:String(Localized("Sending…")) fraction:fraction];
                   },
               .accepted =
                   [this](int number) {
                     job_number_ = number;
                     if (!job_.waits) return End(DialogEnd::kPrinted);
                     SetPhase(Phase::kWaitingForEnd);
                     sender_.WaitForEnd(number, RequestId(queue_.name, number));
                   },
               .refused = [this](const std::string &reason) { ShowRefusal(reason); },
               .waiting =
                   [this](const std::string &message) {
                     const std::string id = RequestId(queue_.name, job_number_);
                     const std::string text = Localized("Printing %1…", {id}) + "  " + message;
                     [view_.get() setProgressText:String(text) fraction:-1];
                   },
               .ended =
                   [this](const Expected<void> &printed) {
                     if (!printed) failure_ = printed.message();
                     End(printed ? DialogEnd::kPrinted : DialogEnd::kJobFailed);
                   }}) {
  TieControls();
  SetPhase(Phase::kNoPrinter);
  ShowFields();
  presets_.Select(job_.preset.empty() ? kDefaultSettings : job_.preset);
}

PrintDialog::~PrintDialog() {
  printers_.Stop();
  // As long as the window is there: a pop-up that loses the focus closes its menu, for which the
  // platform asks the display for its windows, and of an answer without any it loses the memory.
  [window_.get() makeFirstResponder:nil];
  [window_.get() orderOut:nil];
}

void PrintDialog::TieControls() {
  PrintDialogView *view = view_.get();
  waiting_ = Retained<WaitingView *>::Adopt(
      [[WaitingView alloc] initWithWidth:kUsualPanelSize.width - 40]);
  actions_.Tie([waiting_.get() retry], [this] {
    [window_.get() makeFirstResponder:[view_.get() printers]];
    printers_.Retry();
  });
  actions_.Tie([view printers], [this] { ChoosePrinter(); });
  actions_.Tie([view presets], [this] { AfterThisEvent([this] { presets_.Choose(); }); });
  actions_.Tie([view panels], [this] { panels_.ShowChosen(); });
  actions_.Tie([view copiesStepper],
               [view] { [[view copies] setIntValue:[[view copiesStepper] intValue]]; });
  actions_.Tie([view help], [this] {
    if (panels_.WantsHelp())
      Tell(Localized("Choose a printer and what is printed above, and how it is printed on the "
                     "panels below. Presets keep all of these settings.\n\nReturn prints, Escape "
                     "cancels; Tab goes from control to control."));
  });
  actions_.Tie([view cancel], [this] { Cancel(); });
  actions_.Tie([view print], [this] { Accept(); });
  actions_.TieClosing(window_.get(), [this] { Cancel(); });
  if (job_.files.empty()) [[view print] setTitle:String(Localized("Done"))];
}

void PrintDialog::Open() {
  [NSApp activateIgnoringOtherApps:YES];
  fitted_size_ = [view_.get() frame].size;  // nobody has chosen it
  if (job_.ppd) {
    Queue file;
    file.name = job_.ppd->Name();
    AddItem([view_.get() printers], String(file.name), nil);
    [[view_.get() printers] selectItemAtIndex:0];
    [[view_.get() printers] setEnabled:NO];
    [view_.get()
        setPrinterInfo:String(Localized("Printer description from a file; nothing is printed"))];
    UsePrinter(file, std::move(job_.ppd));
    NSView *first = [[view_.get() panelView] nextKeyView];
    [window_.get() setInitialFirstResponder:first != nil ? first : [view_.get() presets]];
  } else {
    [window_.get() setInitialFirstResponder:[view_.get() printers]];
    printers_.AskForQueues();
  }
  FitWindow();
  [window_.get() center];
  [window_.get() makeKeyAndOrderFront:nil];
}

DialogEnd PrintDialog::Run() {
  Open();
  while (!end_) [DialogWindow handleNextEvent];
  return *end_;
}

void PrintDialog::ChoosePrinter() {
  if (phase_ == Phase::kReady && !panels_.TakeAway()) {
    printers_.ShowAnswered();
    return;
  }
  (void)TakeFields();  // what cannot be read stays to be mended
  printers_.AskForChosen();
}

void PrintDialog::ShowQuestion(const std::string &question) {
  SetPhase(Phase::kNoPrinter);
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
  [view_.get() setPanelView:nil];
  queue_ = queue;
  if (ppd) extensions_.LoadNamedBy(*ppd);
  Notes notes = session_.UsePrinter(std::move(ppd), queue.defaults);
  if (job_.settings) {
    const Notes more = session_.UseSettings(std::move(job_.settings));
    notes.insert(notes.end(), more.begin(), more.end());
  }
  const std::string description = DescribeQueue(queue);
  if (!description.empty()) [view_.get() setPrinterInfo:String(description)];
  if (session_.panels().empty()) {
    const std::string reason = session_.ReasonForNoPanel();
    const auto &left_out = extensions_.left_out();
    const bool is_told =
        std::any_of(left_out.begin(), left_out.end(),
                    [&reason](const LeftOut &one) { return one.reason == reason; });
    if (!is_told) notes.push_back(Localized("no extension panel: %1", {reason}));
  }
  SetPhase(Phase::kReady);
  ShowNotes(std::move(notes));
  ShowFieldsNotTyped();
  TellOfLeftOut();
  panels_.ShowPanels();
  FitWindow();
  AskAboutConflicts("");
}

void PrintDialog::ApplySettings(PrintSettings settings) {
  if (phase_ == Phase::kNoPrinter) {  // it gets them when it answers
    job_.settings = std::move(settings);
    return;
  }
  ShowNotes(session_.UseSettings(std::move(settings)));
  ShowFields();
  panels_.Restore();
  AskAboutConflicts("");
}

void PrintDialog::ShowFields() {
  const JobOptions options = session_.Options();
  const auto value = [&options](const char *name, const char *otherwise) {
    const auto option = options.find(name);
    return String(option == options.end() ? otherwise : option->second);
  };
  PrintDialogView *view = view_.get();
  [[view copies] setStringValue:value(kCopies, "1")];
  [[view copiesStepper] setIntValue:[[view copies] intValue]];
  NSString *pages = value(kPageRanges, "");
  [[view pages] setStringValue:[pages isEqualToString:String(kAllPages)] ? @"" : pages];
  shown_copies_ = Text([[view copies] stringValue]);
  shown_pages_ = Text([[view pages] stringValue]);
}

// What was typed while the printer was asked for stays.
void PrintDialog::ShowFieldsNotTyped() {
  PrintDialogView *view = view_.get();
  NSString *copies = [[[[view copies] stringValue] copy] autorelease];
  NSString *pages = [[[[view pages] stringValue] copy] autorelease];
  const bool copies_typed = Text(copies) != shown_copies_;
  const bool pages_typed = Text(pages) != shown_pages_;
  ShowFields();
  if (copies_typed) [[view copies] setStringValue:copies];
  if (pages_typed) [[view pages] setStringValue:pages];
}

// The queue's defaults hold where nothing else is chosen.
Expected<void> PrintDialog::TakeFields() {
  PrintDialogView *view = view_.get();
  const auto take = [this](NSTextField *field, const char *name, const char *otherwise,
                           Expected<std::string> (*parse)(std::string_view)) -> Expected<void> {
    Expected<std::string> value = parse(Text([field stringValue]));
    if (!value) {
      [window_.get() makeFirstResponder:field];
      return value.failure();
    }
    const JobOptions options = session_.Options();
    const auto now = options.find(name);
    if (*value == (now == options.end() ? otherwise : now->second)) return {};
    if (auto done = session_.Set(name, *value); !done) return done;
    if (!value->empty() || !session_.Options().contains(name)) return {};
    return session_.Set(name, kAllPages);
  };
  if (auto done = take([view copies], kCopies, "1", ParseCopies); !done) return done;
  [[view copiesStepper] setIntValue:[[view copies] intValue]];
  return take([view pages], kPageRanges, "", ParsePageRanges);
}

std::vector<SummarySection> PrintDialog::JobSummary() {
  (void)TakeFields();
  std::vector<std::pair<std::string, std::string>> lines = {{Localized("Printer"), queue_.name}};
  if (!job_.files.empty()) lines.emplace_back(Localized("Document"), TitleOfJob(job_.files));
  lines.emplace_back(Localized("Copies"), Text([[view_.get() copies] stringValue]));
  const std::string pages = Text([[view_.get() pages] stringValue]);
  lines.emplace_back(Localized("Pages"), pages.empty() ? Localized("all") : pages);
  for (const PPDOption &option : session_.OtherOptions()) {
    const std::string keyword = session_.Choice(option.keyword);
    if (session_.Value(option.keyword).empty() && keyword == option.default_choice) continue;
    const auto choice =
        std::find_if(option.choices.begin(), option.choices.end(),
                     [&keyword](const PPDChoice &known) { return known.keyword == keyword; });
    lines.emplace_back(option.text, choice == option.choices.end() ? keyword : choice->text);
  }
  return {{Localized("Job"), lines}};
}

PMPrintSettings PrintDialog::SettingsToSave() {
  EndEditing(window_.get());
  Expected<void> taken = TakeFields();
  if (taken) taken = panels_.Save();
  if (taken && session_.fault()) taken = *session_.fault();
  if (taken) return session_.settings();
  AddNote(taken.message());
  return nullptr;
}

void PrintDialog::Accept() {
  if (phase_ != Phase::kReady) return;
  EndEditing(window_.get());
  if (!IsReadyToPrint()) return;
  if (job_.files.empty()) return End(DialogEnd::kAccepted);
  Send();
}

bool PrintDialog::IsReadyToPrint() {
  notes_.clear();
  Expected<void> taken = TakeFields();
  if (taken) taken = panels_.Save();
  if (!taken) {
    AddNote(taken.message());
    return false;
  }
  if (!AskAboutConflicts("")) return false;
  const Expected<void> printable = session_.CheckPrintable();
  panels_.DropFaulty();
  if (!printable) {
    AddNote(printable.message());
    return false;
  }
  ShowNotices();
  return true;
}

// Each pair is asked about once. False: a change was made, which the user should see before the job
// is printed.
bool PrintDialog::AskAboutConflicts(const std::string &chosen) {
  if (session_.ppd() == nullptr) return true;
  for (const PPDConflict &conflict : session_.ppd()->Conflicts(session_.Options())) {
    if (!conflicts_shown_.insert(Pair(conflict)).second) continue;
    const std::string message = Text(
        Sentence(Localized("%1 and %2 cannot be combined on this printer",
                           {DescribeChoice(conflict.first), DescribeChoice(conflict.second)})));
    const std::optional<JobOptions> changes =
        session_.ppd()->Resolution(session_.Options(), chosen);
    if (!changes || changes->empty()) {
      Tell(message + "\n\n" + Localized("Change one of them."));
      continue;
    }
    std::string proposal;
    for (const auto &[keyword, choice] : *changes) {
      proposal += (proposal.empty() ? "" : ", ") + keyword + "=" + choice;
    }
    if (!Ask(message + "\n\n" + Localized("Proposed change: %1", {proposal}), Localized("Change"),
             Localized("Keep Both"))) {
      continue;
    }
    for (const auto &[keyword, choice] : *changes) {
      if (const auto changed = session_.ChangeOption(keyword, choice); !changed) {
        AddNote(changed.message());
      }
    }
    panels_.Restore();
    return false;
  }
  return true;
}

void PrintDialog::Send() {
  JobRequest request;
  request.queue = queue_.name;
  request.title = TitleOfJob(job_.files);
  request.options = session_.Options();
  request.files = job_.files;
  if (session_.fault()) return AddNote(session_.fault()->message);
  has_sent_ = true;
  SetPhase(Phase::kSending);
  [view_.get() setProgressText:String(Localized("Sending…")) fraction:0];
  sender_.Send(std::move(request));
}

void PrintDialog::ShowRefusal(const std::string &reason) {
  if (Interruption::Came()) {
    Complain(reason);
    return End(DialogEnd::kCanceled);
  }
  [view_.get() setProgressText:@"" fraction:-1];
  SetPhase(Phase::kReady);
  AddNote(Localized("not printed: %1", {reason}));
  Complain(reason);
}

void PrintDialog::Cancel() {
  switch (phase_) {
    case Phase::kSending:
      [view_.get() setProgressText:String(Localized("Taking the job back…")) fraction:-1];
      return sender_.CancelSending();
    case Phase::kWaitingForEnd:
      failure_ = Localized("%1 has not been printed yet", {RequestId(queue_.name, job_number_)});
      return End(DialogEnd::kJobFailed);
    default:
      return End(DialogEnd::kCanceled);
  }
}

void PrintDialog::End(DialogEnd end) {
  printers_.Stop();
  passwords_.Close();
  const bool canceled = end == DialogEnd::kCanceled;
  for (const auto &panel : session_.panels()) panel->WindowWillClose(canceled);
  end_ = end;
}

// A menu that was chosen from is still open while its action runs.
void PrintDialog::AfterThisEvent(std::function<void()> work) {
  later_ = Poller([work = std::move(work)] {
    work();
    return true;
  });
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
  if (!busy && [[view printers] numberOfItems] > 1) [[view printers] setEnabled:YES];
  if (busy) [[view printers] setEnabled:NO];
  [[view cancel]
      setTitle:String(phase == Phase::kWaitingForEnd ? Localized("Close") : Localized("Cancel"))];
  [view layOut];
}

void PrintDialog::ShowNotes(Notes notes) {
  for (const std::string &note : notes) Note(note);
  notes_ = std::move(notes);
  ShowNotices();
}

void PrintDialog::AddNote(const std::string &note) {
  if (std::find(notes_.begin(), notes_.end(), note) == notes_.end()) notes_.push_back(note);
  ShowNotices();
}

void PrintDialog::TellOfLeftOut() {
  const auto &left_out = extensions_.left_out();
  for (; left_out_told_ < left_out.size(); ++left_out_told_) {
    const LeftOut &one = left_out[left_out_told_];
    Complain(Localized("%1 is left out: %2", {one.name, one.reason}));
  }
  ShowNotices();
}

void PrintDialog::ShowNotices() {
  std::string text;
  const auto add = [&text](const std::string &line) { text += (text.empty() ? "" : "\n") + line; };
  for (const std::string &note : notes_) add(Text(Sentence(note)));
  for (const std::string &message : presets_left_out_) add(Text(Sentence(message)));
  for (const LeftOut &one : extensions_.left_out())
    add(Text(Sentence(Localized("%1 is left out: %2", {one.name, one.reason}))));
  [view_.get() setNotices:String(text)];
  FitWindow();
}

// As large as the shown panel needs, unless the user has made it larger or the screen is smaller.
void PrintDialog::FitWindow() {
  PrintDialogView *view = view_.get();
  NSSize panel = kUsualPanelSize;
  if (panels_.shown() != nullptr && [view panelView] != nil) {
    const NSSize size = [[view panelView] frame].size;
    panel = NSMakeSize(std::max(panel.width, size.width), std::max(panel.height, size.height));
  }
  NSWindow *window = window_.get();
  const NSRect screen =
      [[window screen] != nil ? [window screen] : [NSScreen mainScreen] visibleFrame];
  const NSRect limit = [NSWindow contentRectForFrameRect:screen styleMask:[window styleMask]];
  const auto within = [&limit](NSSize size) {
    return NSMakeSize(std::min(size.width, limit.size.width),
                      std::min(size.height, limit.size.height));
  };
  NSSize size = within([view sizeForPanelSize:panel]);
  const NSSize now = [view frame].size;
  if (!NSEqualSizes(now, fitted_size_)) {
    size = NSMakeSize(std::max(size.width, now.width), std::max(size.height, now.height));
  }
  [window setContentMinSize:within([view minSize])];
  if (!NSEqualSizes(size, now)) {
    const NSPoint top_left = NSMakePoint(NSMinX([window frame]), NSMaxY([window frame]));
    [window setContentSize:size];
    [window setFrameTopLeftPoint:top_left];
  }
  fitted_size_ = size;
}
