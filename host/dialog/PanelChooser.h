// The pop-up of panels, and the panel that is shown.

#ifndef HOST_DIALOG_PANELCHOOSER_H
#define HOST_DIALOG_PANELCHOOSER_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/base/Retained.h"
#include "host/dialog/OwnPanel.h"
#import "host/dialog/PrintDialogView.h"
#include "host/session/JobSession.h"

class PanelChooser {
 public:
  struct Callbacks {
    std::function<void()> shown;            // another panel than before
    std::function<void()> panels_left_out;  // some showed a fault
    // A panel stays, or does not save.
    std::function<void(const std::string &message)> refused;
  };

  // The dialog's own panels follow those of the extensions; the last one always has something to
  // show.
  PanelChooser(PrintDialogView *view, JobSession &session,
               std::vector<std::unique_ptr<OwnPanel>> own_panels, Callbacks callbacks);
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
  // The documents are others.
  void ShowDocuments();
  // Whether the dialog's own help is wanted; the panel may have shown its own.
  bool WantsHelp();

  // Leaves out the panels that have shown a fault. True if the shown one is among them, and gone.
  bool DropFaulty();
  // What is shown needs, if no extension's panel is to scroll: what most panels need, or more.
  NSSize Size() const;

 private:
  void Fill();
  void SelectShown();
  void Show(const std::string &kind);
  void ShowOwn(OwnPanel &panel);
  bool ShowExtension(std::shared_ptr<ExtensionPanel> panel);
  Expected<void> SaveShown();

  Retained<PrintDialogView *> view_;
  JobSession &session_;
  const std::vector<std::unique_ptr<OwnPanel>> own_panels_;
  Callbacks callbacks_;
  std::shared_ptr<ExtensionPanel> shown_;  // null: an own panel is, or none
  std::string kind_;                       // of what is shown
  std::string wanted_;  // likewise, of what the user chose last; empty: the first
};

#endif
