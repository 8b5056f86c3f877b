#include "host/dialog/PanelChooser.h"

#include <algorithm>

#import "host/dialog/Appearance.h"
#import "host/dialog/Controls.h"

#include "host/base/Localized.h"

namespace {

// The dialog's own panels; no extension's kind looks like these.
const char kOptionsKind[] = "pdeprint options";
const char kSummaryKind[] = "pdeprint summary";

}  // namespace

PanelChooser::PanelChooser(PrintDialogView *view, JobSession &session, Callbacks callbacks)
    : view_(Retained<PrintDialogView *>::Share(view)),
      session_(session),
      callbacks_(std::move(callbacks)) {}

// A click in a panel's view afterwards would reach a panel that is gone.
PanelChooser::~PanelChooser() { [view_.get() setPanelView:nil]; }

void PanelChooser::ShowPanels() {
  Fill();
  Show(wanted_);
}

void PanelChooser::Fill() {
  NSPopUpButton *pop_up = [view_.get() panels];
  [pop_up removeAllItems];
  for (const auto &panel : session_.panels()) {
    AddItem(pop_up, String(panel->name()), String(panel->kind()));
  }
  const std::vector<PPDOption> options = session_.OtherOptions();
  options_ = Retained<OptionsView *>();
  if (!options.empty()) {
    options_ = Retained<OptionsView *>::Adopt([[OptionsView alloc]
        initWithOptions:options
             whenChosen:[this](const std::string &keyword, const std::string &choice) {
               if (const auto changed = session_.ChangeOption(keyword, choice); !changed) {
                 ShowChoices();
                 return callbacks_.refused(changed.message());
               }
               callbacks_.option_chosen(keyword);
             }]);
    AddItem(pop_up, String(Localized("Printer Options")), String(kOptionsKind));
  }
  AddItem(pop_up, String(Localized("Summary")), String(kSummaryKind));
}

void PanelChooser::Show(const std::string &kind) {
  NSPopUpButton *pop_up = [view_.get() panels];
  NSInteger index = [pop_up indexOfItemWithRepresentedObject:String(kind)];
  if (index < 0) index = 0;
  const std::string wanted = Text([[pop_up itemAtIndex:index] representedObject]);
  [pop_up selectItemAtIndex:index];
  shown_.reset();
  kind_ = wanted;
  if (wanted == kOptionsKind) {
    ShowChoices();
    [view_.get() setPanelView:options_.get()];
    return callbacks_.shown();
  }
  if (wanted == kSummaryKind) {
    if (summary_.get() == nil) {
      summary_ = Retained<SummaryView *>::Adopt([[SummaryView alloc] initWithFrame:NSZeroRect]);
    }
    std::vector<SummarySection> sections = callbacks_.job_summary();
    for (SummarySection &section : session_.Summary()) sections.push_back(std::move(section));
    [view_.get() setPanelView:nil];
    [summary_.get() showSections:sections];
    [view_.get() setPanelView:summary_.get()];
    DropFaulty();
    return callbacks_.shown();
  }
  const auto panel = std::find_if(session_.panels().begin(), session_.panels().end(),
                                  [&wanted](const auto &known) { return known->kind() == wanted; });
  if (!ShowPanel(*panel)) return Show("");
  callbacks_.shown();
}

void PanelChooser::ShowChoices() {
  [options_.get()
      showChoices:[this](const std::string &keyword) {
        Expected<std::string> choice = session_.Choice(keyword);
        if (choice) return *choice;
        callbacks_.refused(choice.message());
        return std::string();
      }];
}

bool PanelChooser::ShowPanel(std::shared_ptr<ExtensionPanel> panel) {
  NSView *view = panel->View();
  if (view != nil) {
    if (const auto restored = panel->Restore(); !restored && !panel->fault()) {
      callbacks_.refused(restored.message());
    }
    panel->WillShow();
  }
  shown_ = std::move(panel);
  if (DropFaulty()) return false;
  StraightenButtons(view);
  [view_.get() setPanelView:view];
  return true;
}

void PanelChooser::ShowChosen() {
  const std::string chosen = Text([[[view_.get() panels] selectedItem] representedObject]);
  if (chosen == kind_) return;
  const std::string before = kind_;
  if (!TakeAway()) {
    SelectShown();
    return;
  }
  wanted_ = chosen;
  Show(chosen);
}

void PanelChooser::SelectShown() {
  NSPopUpButton *pop_up = [view_.get() panels];
  [pop_up selectItemAtIndex:[pop_up indexOfItemWithRepresentedObject:String(kind_)]];
}

bool PanelChooser::TakeAway() {
  [view_.get() moveFocusOutOfPanel];  // what is being typed counts
  if (shown_ != nullptr) {
    if (!shown_->ShouldHide()) {
      callbacks_.refused(Localized("%1 cannot be left as it is", {shown_->name()}));
      return false;
    }
    if (const auto saved = SaveShown(); !saved) {
      callbacks_.refused(saved.message());
      if (!shown_->fault()) return false;
    }
  }
  [view_.get() setPanelView:nil];
  shown_.reset();
  DropFaulty();
  return true;
}

Expected<void> PanelChooser::Save() {
  Expected<void> saved = SaveShown();
  if (DropFaulty()) Show("");
  return saved;
}

Expected<void> PanelChooser::SaveShown() {
  if (shown_ == nullptr) return {};
  Expected<void> saved = shown_->Save();
  if (!shown_->fault()) return saved;
  return Failure{
      Localized("what was chosen on %1 is lost; the job goes on without it", {shown_->name()})};
}

void PanelChooser::Restore() {
  if (shown_ == nullptr) {
    Show(kind_);
    return;
  }
  if (const auto restored = shown_->Restore(); !restored && !shown_->fault()) {
    callbacks_.refused(restored.message());
  }
  if (DropFaulty()) Show("");
}

bool PanelChooser::WantsHelp() {
  if (shown_ == nullptr) return true;
  const bool wanted = shown_->ShouldShowHelp();
  if (DropFaulty()) Show("");
  return wanted;
}

bool PanelChooser::DropFaulty() {
  const auto &panels = session_.panels();
  if (std::none_of(panels.begin(), panels.end(),
                   [](const auto &panel) { return panel->fault().has_value(); })) {
    return false;
  }
  const bool shown_is_faulty = shown_ != nullptr && shown_->fault();
  if (shown_is_faulty) {
    [view_.get() setPanelView:nil];
    shown_.reset();
  }
  session_.DropFaultyPanels();
  callbacks_.panels_left_out();
  const std::string kind = kind_;
  Fill();
  if (!shown_is_faulty) SelectShown();
  return shown_is_faulty;
}
