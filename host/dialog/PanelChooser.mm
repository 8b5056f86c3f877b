#include "host/dialog/PanelChooser.h"

#include <algorithm>
#include <utility>

#include "host/base/Localized.h"
#import "host/dialog/Appearance.h"
#import "host/dialog/Controls.h"

namespace {

const NSSize kUsualSize = {520, 216};

// That of the kind; the end: there is none.
template <typename Panels>
auto FindPanel(const Panels &panels, const std::string &kind) {
  return std::find_if(panels.begin(), panels.end(),
                      [&kind](const auto &panel) { return panel->kind() == kind; });
}

}  // namespace

PanelChooser::PanelChooser(PrintDialogView *view, JobSession &session,
                           std::vector<std::unique_ptr<OwnPanel>> own_panels, Callbacks callbacks)
    : view_(Retained<PrintDialogView *>::Share(view)),
      session_(session),
      own_panels_(std::move(own_panels)),
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
  for (const auto &panel : own_panels_) {
    if (panel->Prepare()) AddItem(pop_up, String(panel->title()), String(panel->kind()));
  }
}

// Where there is none of this kind, the first one.
void PanelChooser::Show(const std::string &kind) {
  NSPopUpButton *pop_up = [view_.get() panels];
  const NSInteger index = [pop_up indexOfItemWithRepresentedObject:String(kind)];
  [pop_up selectItemAtIndex:index < 0 ? 0 : index];
  kind_ = Text([[pop_up selectedItem] representedObject]);
  shown_.reset();
  if (const auto own = FindPanel(own_panels_, kind_); own != own_panels_.end()) {
    ShowOwn(**own);
  } else if (!ShowExtension(*FindPanel(session_.panels(), kind_))) {
    return Show("");
  }
  callbacks_.shown();
}

void PanelChooser::ShowOwn(OwnPanel &panel) {
  [view_.get() setPanelView:panel.View()];
  if (panel.AsksExtensions()) DropFaulty();
}

bool PanelChooser::ShowExtension(std::shared_ptr<ExtensionPanel> panel) {
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
  if (shown_ != nullptr && !shown_->ShouldHide()) {
    callbacks_.refused(Localized("%1 cannot be left as it is", {shown_->name()}));
    return false;
  }
  if (const auto saved = SaveShown(); !saved) {
    callbacks_.refused(saved.message());
    if (shown_ == nullptr || !shown_->fault()) return false;
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
  if (shown_ == nullptr) {
    const auto own = FindPanel(own_panels_, kind_);
    return own == own_panels_.end() ? Expected<void>() : (*own)->Save();
  }
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

void PanelChooser::ShowDocuments() {
  if (shown_ != nullptr) return;
  const auto own = FindPanel(own_panels_, kind_);
  if (own != own_panels_.end() && (*own)->ShowsDocuments()) ShowOwn(**own);
}

bool PanelChooser::WantsHelp() {
  if (shown_ == nullptr) return true;
  const bool wanted = shown_->ShouldShowHelp();
  if (DropFaulty()) Show("");
  return wanted;
}

NSSize PanelChooser::Size() const {
  NSView *panel = shown_ == nullptr ? nil : [view_.get() panelView];
  if (panel == nil) return kUsualSize;
  const NSSize size = [panel frame].size;
  return NSMakeSize(std::max(kUsualSize.width, size.width),
                    std::max(kUsualSize.height, size.height));
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
  Fill();
  if (!shown_is_faulty) SelectShown();
  return shown_is_faulty;
}
