#include "host/dialog/JobEditor.h"

#include <utility>

#include "host/base/Localized.h"
#include "host/cups/QueueList.h"
#include "host/dialog/DocumentsPanel.h"
#import "host/dialog/Focus.h"
#include "host/dialog/JobSummary.h"
#import "host/dialog/Prompt.h"
#include "host/dialog/RowsPanel.h"
#include "host/dialog/SummaryPanel.h"

JobEditor::JobEditor(PrintDialogView *view, JobSession &session, Notices &notices,
                     PresetStore presets, JobDocuments &documents, Callbacks callbacks)
    : view_(Retained<PrintDialogView *>::Share(view)),
      callbacks_(std::move(callbacks)),
      session_(session),
      notices_(notices),
      documents_(documents),
      conflicts_({.ask = Ask, .tell = Tell}),
      fields_(view, session),
      panels_(view, session, OwnPanels(), CallbacksOfPanels()),
      presets_([view presets], std::move(presets), CallbacksOfPresets()) {
  actions_.Tie([view presets], [this] { AfterThisEvent([this] { presets_.Choose(); }); });
  actions_.Tie([view panels], [this] { panels_.ShowChosen(); });
}

std::vector<std::unique_ptr<OwnPanel>> JobEditor::OwnPanels() {
  std::vector<std::unique_ptr<OwnPanel>> panels;
  const RowsPanel::Callbacks callbacks = {
      .chosen =
          [this](const std::string &option) {
            AfterThisEvent([this, option] { SettleConflicts(option); });
          },
      .refused = [this](const std::string &message) { notices_.AddNote(message); }};
  for (JobPanel &panel : JobPanels()) {
    panels.push_back(std::make_unique<RowsPanel>(std::move(panel), session_, callbacks));
  }
  if (!documents_.empty()) {
    panels.push_back(std::make_unique<DocumentsPanel>(
        documents_, [this] { AfterThisEvent([this] { callbacks_.wants_documents(); }); }));
  }
  panels.push_back(std::make_unique<SummaryPanel>(session_, [this] { return Summary(); }));
  return panels;
}

PanelChooser::Callbacks JobEditor::CallbacksOfPanels() {
  return {.shown = callbacks_.panel_shown,
          .panels_left_out = [this] { notices_.TellOfLeftOut(); },
          .refused = [this](const std::string &message) { notices_.AddNote(message); }};
}

PresetChooser::Callbacks JobEditor::CallbacksOfPresets() {
  return {.apply = [this](PrintSettings settings) { ApplyPreset(std::move(settings)); },
          .settings_to_save = [this] { return SettingsForPreset(); },
          .tell = [this](const std::string &message) { notices_.AddNote(message); },
          .left_out = [this](const std::string &message) { notices_.AddDamagedPreset(message); }};
}

void JobEditor::Open(PrintSettings settings, const std::string &preset) {
  for_printer_ = std::move(settings);
  fields_.Show();
  presets_.Select(preset);
}

bool JobEditor::LeavePrinter() {
  if (has_printer_ && !panels_.TakeAway()) return false;
  (void)fields_.Take();  // what cannot be read stays to be mended
  return true;
}

void JobEditor::UsePrinter(const Queue &queue, std::optional<PPDFile> ppd) {
  has_printer_ = true;
  printer_ = queue.name;
  OfferedOptions offered = OfferedBy(queue, ppd.has_value());
  Expected<Notes> used = session_.UsePrinter(std::move(ppd), queue.defaults, std::move(offered),
                                             queue.formats, queue.of_user);
  if (!used) return LosePrinter(used.message());
  Notes notes = std::move(*used);
  if (for_printer_) {
    used = session_.UseSettings(std::move(for_printer_));
    if (!used) return LosePrinter(used.message());
    notes.insert(notes.end(), used->begin(), used->end());
  }
  if (session_.panels().empty()) {
    const std::string reason = session_.ReasonForNoPanel();
    if (!notices_.IsReasonOfLeftOut(reason)) {
      notes.push_back(Localized("no extension panel: %1", {reason}));
    }
  }
  notices_.SetAboutPrinter(AppliedHere());
  notices_.ReplaceNotes(std::move(notes));
  fields_.ShowWhereNotTyped();
  notices_.TellOfLeftOut();
  panels_.ShowPanels();
  SettleConflicts("");
  callbacks_.changed();
}

Notes JobEditor::AppliedHere() const {
  Notes notes;
  if (printer_.empty()) return notes;  // a file can only be made here
  for (const Application &application : session_.applications()) {
    if (application.by != Application::By::kThisComputer) continue;
    notes.push_back(Localized("%1 is applied on this computer", {application.bundle}));
  }
  return notes;
}

void JobEditor::ApplyPreset(PrintSettings settings) {
  if (!has_printer_) {
    for_printer_ = std::move(settings);
    return;
  }
  Expected<Notes> notes = session_.UseSettings(std::move(settings));
  if (!notes) return LosePrinter(notes.message());
  notices_.ReplaceNotes(std::move(*notes));
  fields_.Show();
  panels_.Restore();
  SettleConflicts("");
  callbacks_.changed();
}

void JobEditor::LosePrinter(const std::string &reason) {
  has_printer_ = false;
  presets_.Select(kDefaultSettings);
  callbacks_.printer_lost(reason);
}

// None: they cannot be saved as they stand.
PMPrintSettings JobEditor::SettingsForPreset() {
  const Expected<void> taken = TakeChoices();
  if (taken) return session_.settings();
  notices_.AddNote(taken.message());
  return nullptr;
}

// What is being typed, too.
Expected<void> JobEditor::TakeChoices() {
  EndEditing([view_.get() window]);
  if (auto taken = fields_.Take(); !taken) return taken;
  return panels_.Save();
}

SummarySection JobEditor::Summary() {
  (void)fields_.Take();
  Expected<SummarySection> section = SummaryOfJob({.printer = printer_,
                                                   .document = documents_.Title(),
                                                   .copies = fields_.copies(),
                                                   .pages = fields_.pages()},
                                                  session_);
  if (section) return std::move(*section);
  notices_.AddNote(section.message());
  return {};
}

Expected<PagesRequest> JobEditor::PagesAsTheyStand() {
  if (!has_printer_) return Failure{Localized("there is no printer yet")};
  Expected<PagesRequest> pages = Failure{};
  const auto look = [&] {
    Expected<void> saved = panels_.Save();
    pages = saved ? session_.PagesFor(documents_.files()) : saved.failure();
  };
  if (auto done = session_.PutBackAfter(look); !done) return done.failure();
  if (pages) fields_.AddTo(pages->options);
  return pages;
}

bool JobEditor::IsReadyToPrint() {
  notices_.ForgetNotes();
  if (const auto taken = TakeChoices(); !taken) {
    notices_.AddNote(taken.message());
    return false;
  }
  if (!SettleConflicts("")) return false;
  const Expected<void> printable = session_.CheckPrintable();
  panels_.DropFaulty();
  if (!printable) {
    notices_.AddNote(printable.message());
    return false;
  }
  notices_.ShowAll();
  return true;
}

// The option that was chosen is not proposed for a change; empty: none was. False: a change was
// made, which the user should see before the job is printed.
bool JobEditor::SettleConflicts(const std::string &chosen) {
  if (session_.ppd() == nullptr) return true;
  Expected<JobOptions> options = session_.Options();
  if (!options) {
    notices_.AddNote(options.message());
    return false;
  }
  const JobOptions changes = conflicts_.Ask(*session_.ppd(), *options, chosen);
  if (changes.empty()) return true;
  for (const auto &[keyword, choice] : changes) {
    if (const auto changed = session_.ChangeOption(keyword, choice); !changed) {
      notices_.AddNote(changed.message());
    }
  }
  panels_.Restore();
  return false;
}

// A menu that was chosen from is still open while its action runs.
void JobEditor::AfterThisEvent(std::function<void()> work) {
  later_ = Poller([this, work = std::move(work)] {
    work();
    callbacks_.changed();
    return true;
  });
}
