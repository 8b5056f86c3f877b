#include "host/dialog/DocumentsPanel.h"

#include <utility>

#include "host/base/Localized.h"

DocumentsPanel::DocumentsPanel(JobDocuments &documents, std::function<void()> wants_more)
    : documents_(documents), wants_more_(std::move(wants_more)) {}

std::string DocumentsPanel::kind() const { return "pdeprint documents"; }

std::string DocumentsPanel::title() const { return Localized("Documents"); }

NSView *DocumentsPanel::View() {
  if (view_.get() == nil) {
    view_ = Retained<DocumentsView *>::Adopt([[DocumentsView alloc] initWithDocuments:&documents_
                                                                            wantsMore:wants_more_]);
  }
  [view_.get() showDocuments];
  return view_.get();
}
