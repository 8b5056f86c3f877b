#include "host/dialog/OptionsPanel.h"

#include <utility>

#include "host/base/Localized.h"

OptionsPanel::OptionsPanel(JobSession &session, Callbacks callbacks)
    : session_(session), callbacks_(std::move(callbacks)) {}

std::string OptionsPanel::kind() const { return "pdeprint options"; }

std::string OptionsPanel::title() const { return Localized("Printer Options"); }

bool OptionsPanel::Prepare() {
  const std::vector<PPDOption> options = session_.OtherOptions();
  view_ = Retained<OptionsView *>();
  if (options.empty()) return false;
  view_ = Retained<OptionsView *>::Adopt([[OptionsView alloc]
      initWithOptions:options
           whenChosen:[this](const std::string &keyword, const std::string &choice) {
             Choose(keyword, choice);
           }]);
  return true;
}

NSView *OptionsPanel::View() {
  Expected<JobOptions> choices = session_.Choices();
  if (!choices) callbacks_.refused(choices.message());
  [view_.get() showChoices:choices ? *choices : JobOptions()];
  return view_.get();
}

void OptionsPanel::Choose(const std::string &keyword, const std::string &choice) {
  const Expected<void> changed = session_.ChangeOption(keyword, choice);
  if (changed) return callbacks_.chosen(keyword);
  (void)View();
  callbacks_.refused(changed.message());
}
