// One job: its print settings, the printer that they are for, and the panels at work on them. What
// a print dialog is apart from its window.

#ifndef HOST_SESSION_JOBSESSION_H
#define HOST_SESSION_JOBSESSION_H

#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/cups/PPDFile.h"
#include "host/extension/Extensions.h"
#include "host/job/JobTicket.h"

using Notes =
    std::vector<std::string>;  // what the user should know, a sentence without full stop each

class JobSession {
 public:
  // The bundles must outlive the session.
  explicit JobSession(Extensions &extensions);
  ~JobSession();
  JobSession(const JobSession &) = delete;
  JobSession &operator=(const JobSession &) = delete;

  // Changes the printer: asks all bundles for panels anew, which restore themselves when they are
  // shown. Settings that do not fit are taken away, each with a note. The panels of the printer
  // before must be out of the window. The defaults are the queue's; no PPD file: the queue has
  // none.
  Notes UsePrinter(std::optional<PPDFile> ppd, JobOptions defaults);

  // Replaces all settings, by those of a ticket or preset. What does not fit the printer is taken
  // away, each with a note. Panels in the window must be restored afterwards.
  Notes UseSettings(PrintSettings settings);

  const PPDFile *ppd() const { return ppd_ ? &*ppd_ : nullptr; }
  PMPrintSettings settings() const { return settings_.get(); }
  const ExtensionPanels &panels() const { return panels_; }
  // Drops the panels that have shown a fault; they are then among the bundles left out.
  void DropFaultyPanels();
  // Why there is no panel, where there is none.
  std::string ReasonForNoPanel() const { return extensions_.ReasonForNoPanel(ppd()); }

  std::string Value(const std::string &keyword) const;             // empty: not set
  void Set(const std::string &keyword, const std::string &value);  // empty: takes it away
  // What the job is printed with if nothing more is set: the queue's defaults under the settings.
  JobOptions Options() const;
  // The choice of a PPD option as the job stands: set, the queue's default, or the file's.
  std::string Choice(const std::string &keyword) const;

  // The PPD options that no panel shows.
  std::vector<PPDOption> OtherOptions() const;

  // Changes the choice of a PPD option from outside the panels, and tells them.
  void ChangeOption(const std::string &keyword, const std::string &choice);

  // Why the job cannot be printed as it stands: a panel does not allow it, or a value does not fit
  // the printer. Conflicts of choices are not looked at.
  std::optional<Failure> ReasonNotToPrint();

  // The localized summary of every panel, under its name.
  std::vector<std::pair<std::string, SummaryLines>> Summary();

 private:
  Extensions &extensions_;
  std::optional<PPDFile> ppd_;
  JobOptions defaults_;
  PrintSettings settings_;
  Retained<HostCallback *> host_;
  ExtensionPanels panels_;
};

#endif
