// A panel of rows, on which people choose something for the job.

#ifndef HOST_DIALOG_ROWSPANEL_H
#define HOST_DIALOG_ROWSPANEL_H

#include <functional>
#include <string>

#include "host/base/Retained.h"
#include "host/dialog/OwnPanel.h"
#import "host/dialog/RowsView.h"
#include "host/session/panels/JobPanels.h"

class RowsPanel : public OwnPanel {
 public:
  struct Callbacks {
    std::function<void(const std::string &option)> chosen;
    std::function<void(const std::string &message)> refused;  // what was chosen before stays
  };

  // The session must outlive the object.
  RowsPanel(JobPanel panel, JobSession &session, Callbacks callbacks);

  std::string kind() const override { return panel_.kind; }
  std::string title() const override { return panel_.title; }
  bool Prepare() override;
  NSView *View() override;
  Expected<void> Save() override;

 private:
  void Show(size_t besides);
  void Choose(size_t row, const std::string &value);
  void Type(size_t row, const std::string &text);

  const JobPanel panel_;
  JobSession &session_;
  Callbacks callbacks_;
  PanelRows rows_;  // for the next view
  Retained<RowsView *> view_;
  bool is_outdated_ = true;  // the view
};

#endif
