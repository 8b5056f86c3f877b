// The panel of the printer's options that no extension panel shows.

#ifndef HOST_DIALOG_OPTIONSPANEL_H
#define HOST_DIALOG_OPTIONSPANEL_H

#include <functional>
#include <string>

#include "host/base/Retained.h"
#import "host/dialog/OptionsView.h"
#include "host/dialog/OwnPanel.h"
#include "host/session/JobSession.h"

class OptionsPanel : public OwnPanel {
 public:
  struct Callbacks {
    std::function<void(const std::string &keyword)> chosen;   // for the option
    std::function<void(const std::string &message)> refused;  // the choice before stays
  };

  // The session must outlive the object.
  OptionsPanel(JobSession &session, Callbacks callbacks);

  std::string kind() const override;
  std::string title() const override;
  bool Prepare() override;
  NSView *View() override;

 private:
  void Choose(const std::string &keyword, const std::string &choice);

  JobSession &session_;
  Callbacks callbacks_;
  Retained<OptionsView *> view_;
};

#endif
