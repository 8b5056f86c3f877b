// The panel that says which documents are printed, in which order.

#ifndef HOST_DIALOG_DOCUMENTSPANEL_H
#define HOST_DIALOG_DOCUMENTSPANEL_H

#include <functional>
#include <string>

#include "host/base/Retained.h"
#import "host/dialog/DocumentsView.h"
#include "host/dialog/OwnPanel.h"
#include "host/job/JobDocuments.h"

class DocumentsPanel : public OwnPanel {
 public:
  // The documents must outlive the object.
  DocumentsPanel(JobDocuments &documents, std::function<void()> wants_more);

  std::string kind() const override;
  std::string title() const override;
  NSView *View() override;
  bool ShowsDocuments() const override { return true; }

 private:
  JobDocuments &documents_;
  std::function<void()> wants_more_;
  Retained<DocumentsView *> view_;
};

#endif
