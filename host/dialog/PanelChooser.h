// The pop-up of panels, and the panel that is shown.

#ifndef HOST_DIALOG_PANELCHOOSER_H
#define HOST_DIALOG_PANELCHOOSER_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#import "host/dialog/OptionsView.h"
#import "host/dialog/PrintDialogView.h"
#import "host/dialog/SummaryView.h"
#include "host/session/JobSession.h"

class PanelChooser {
 public:
  struct Callbacks {
    std::function<void()> shown;            // another panel than before
    std::function<void()> panels_left_out;  // some showed a fault
    // A panel stays, or does not save; or an option of the printer cannot be changed.
    std::function<void(const std::string &message)> refused;
    std::function<void(const std::string &keyword)> option_chosen;  // among the printer's options
    std::function<std::vector<SummarySection>()> job_summary;       // what precedes the panels' own
  };

  PanelChooser(PrintDialogView *view, JobSession &session, Callbacks callbacks);
  ~PanelChooser();

  // Fills the pop-up with the session's panels, and shows the one that was shown last, or else the
  // first.
  void ShowPanels();
  // Shows the one that the pop-up was turned to, unless the one in its place refuses to hide.
  void ShowChosen();
  // Has the shown panel save and takes it out of the window. False: it refuses, and stays.
  bool TakeAway();
  // Has the shown panel save.
  Expected<void> Save();
  // The settings were changed behind the shown panel's back.
  void Restore();
  // Whether the dialog's own help is wanted; the panel may have shown its own.
  bool WantsHelp();

  // Leaves out the panels that have shown a fault. True if the shown one is among them, and gone.
  bool DropFaulty();
  // The extension panel that is shown, if one is.
  ExtensionPanel *shown() const { return shown_.get(); }

 private:
  void Show(const std::string &kind);
  void ShowChoices();
  bool ShowPanel(std::shared_ptr<ExtensionPanel> panel);
  Expected<void> SaveShown();
  void Fill();
  void SelectShown();
  Retained<PrintDialogView *> view_;
  JobSession &session_;
  Callbacks callbacks_;
  std::shared_ptr<ExtensionPanel> shown_;
  std::string kind_;    // of what is shown
  std::string wanted_;  // likewise, of what the user chose last; empty: the first
  Retained<OptionsView *> options_;
  Retained<SummaryView *> summary_;
};

#endif
