// The panel that says in words what the job is.

#ifndef HOST_DIALOG_SUMMARYPANEL_H
#define HOST_DIALOG_SUMMARYPANEL_H

#include <functional>
#include <string>

#include "host/dialog/OwnPanel.h"
#include "host/dialog/SummarySection.h"
#include "host/session/JobSession.h"

class SummaryPanel : public OwnPanel {
 public:
  // What precedes the extension panels' own summaries. The session must outlive the object.
  SummaryPanel(JobSession &session, std::function<SummarySection()> job);

  std::string kind() const override;
  std::string title() const override;
  NSView *View() override;
  bool AsksExtensions() const override { return true; }
  bool ShowsDocuments() const override { return true; }

 private:
  JobSession &session_;
  std::function<SummarySection()> job_;
};

#endif
