#include "host/dialog/RowsPanel.h"

#include <cstdint>
#include <utility>

RowsPanel::RowsPanel(JobPanel panel, JobSession &session, Callbacks callbacks)
    : panel_(std::move(panel)), session_(session), callbacks_(std::move(callbacks)) {}

bool RowsPanel::Prepare() {
  rows_ = panel_.RowsFor(session_);
  is_outdated_ = true;
  return !rows_.empty();
}

NSView *RowsPanel::View() {
  if (is_outdated_) {
    view_ = Retained<RowsView *>::Adopt([[RowsView alloc]
        initWithRows:rows_
           callbacks:{.chosen = [this](size_t row,
                                       const std::string &value) { Choose(row, value); },
                      .typed = [this](size_t row, const std::string &text) { Type(row, text); }}]);
    is_outdated_ = false;
  }
  Show(SIZE_MAX);
  return view_.get();
}

void RowsPanel::Show(size_t besides) {
  Expected<JobOptions> job = JobAsItStands(session_);
  if (!job) callbacks_.refused(job.message());
  [view_.get() showJob:job ? *job : JobOptions() besides:besides];
}

void RowsPanel::Choose(size_t row, const std::string &value) {
  const PanelRow &chosen = [view_.get() rows][row];
  const Expected<void> changed = chosen.Choose(session_, value);
  Show(changed ? row : SIZE_MAX);
  if (changed) return callbacks_.chosen(chosen.Option());
  callbacks_.refused(changed.message());
}

// Half of what is being typed need not be right: it counts when it is.
void RowsPanel::Type(size_t row, const std::string &text) {
  if ([view_.get() rows][row].Choose(session_, text)) Show(row);
}

Expected<void> RowsPanel::Save() {
  if ([view_.get() window] == nil) return {};
  for (const auto &[row, text] : [view_.get() texts]) {
    if (const auto taken = [view_.get() rows][row].Choose(session_, text); !taken) {
      [view_.get() giveFocusTo:row];
      return taken;
    }
  }
  return {};
}
