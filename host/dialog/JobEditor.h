// What is printed and how: all that people choose of a job.

#ifndef HOST_DIALOG_JOBEDITOR_H
#define HOST_DIALOG_JOBEDITOR_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Retained.h"
#include "host/cups/Queue.h"
#include "host/dialog/ActionTarget.h"
#include "host/dialog/ConflictQuestions.h"
#include "host/dialog/CopiesAndPages.h"
#include "host/dialog/Notices.h"
#include "host/dialog/OwnPanel.h"
#include "host/dialog/PanelChooser.h"
#include "host/dialog/Poller.h"
#include "host/dialog/PresetChooser.h"
#import "host/dialog/PrintDialogView.h"
#include "host/dialog/SummarySection.h"
#include "host/job/JobDocuments.h"
#include "host/presets/PresetStore.h"
#include "host/session/JobSession.h"

// Brings the fields, the panels and the presets of the window together in one job's settings. What
// fails is among the notices.
class JobEditor {
 public:
  struct Callbacks {
    std::function<void()> panel_shown;      // another one than before
    std::function<void()> changed;          // other settings, not by the user's own hand
    std::function<void()> wants_documents;  // the user does: others besides
    // The settings could not be made to fit, and have gone with the printer.
    std::function<void(const std::string &reason)> printer_lost;
  };

  // What it refers to must outlive the object. No documents: nothing is printed.
  JobEditor(PrintDialogView *view, JobSession &session, Notices &notices, PresetStore presets,
            JobDocuments &documents, Callbacks callbacks);

  // Shows a job without printer. The settings wait for one; the preset is the one that they are
  // from.
  void Open(PrintSettings settings, const std::string &preset);
  // Before another printer is asked for: has the panel save, and takes it out of the window. False:
  // it refuses, and the printer must stay.
  bool LeavePrinter();
  // A printer is asked for; presets that are chosen wait for its answer.
  void AwaitPrinter() { has_printer_ = false; }
  // It has answered: fits the settings to it and shows its panels.
  void UsePrinter(const Queue &queue, std::optional<PPDFile> ppd);

  // The pages that would be printed if all that was typed and chosen were in the job's settings,
  // which stay as they are. The failure: there is no printer, or the panel or a field has something
  // that cannot be printed.
  Expected<PagesRequest> PagesAsTheyStand();

  // The documents are others than before.
  void ShowDocuments() { panels_.ShowDocuments(); }

  // Has all that was typed and chosen in the job's settings; whether it can be printed so.
  bool IsReadyToPrint();

  // Whether the dialog's own help is wanted; the panel may have shown its own.
  bool WantsHelp() { return panels_.WantsHelp(); }
  // Of what is shown of the job's panels, without scrolling.
  NSSize PanelSize() const { return panels_.Size(); }

 private:
  std::vector<std::unique_ptr<OwnPanel>> OwnPanels();
  PanelChooser::Callbacks CallbacksOfPanels();
  PresetChooser::Callbacks CallbacksOfPresets();

  void ApplyPreset(PrintSettings settings);
  Notes AppliedHere() const;
  void LosePrinter(const std::string &reason);
  PMPrintSettings SettingsForPreset();
  Expected<void> TakeChoices();
  SummarySection Summary();
  bool SettleConflicts(const std::string &chosen);
  void AfterThisEvent(std::function<void()> work);

  Retained<PrintDialogView *> view_;
  Callbacks callbacks_;
  JobSession &session_;
  Notices &notices_;
  JobDocuments &documents_;
  std::string printer_;
  bool has_printer_ = false;
  PrintSettings for_printer_;  // settings that wait for it; null: none do
  ConflictQuestions conflicts_;
  CopiesAndPages fields_;
  PanelChooser panels_;
  PresetChooser presets_;
  Actions actions_;
  Poller later_;
};

#endif
