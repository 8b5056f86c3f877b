// One job: its print settings, the printer that they are for, and the panels at work on them. What
// a print dialog is apart from its window.

#ifndef HOST_SESSION_JOBSESSION_H
#define HOST_SESSION_JOBSESSION_H

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/base/Expected.h"
#include "host/extension/Extensions.h"
#include "host/job/PrintSettings.h"
#include "host/ppd/PPDFile.h"

// What the user should know, a sentence without full stop each.
using Notes = std::vector<std::string>;

class JobSession {
 public:
  // The bundles must outlive the session.
  explicit JobSession(Extensions &extensions);
  ~JobSession();
  JobSession(const JobSession &) = delete;
  JobSession &operator=(const JobSession &) = delete;

  // Changes the printer: also loads the bundles that the PPD file names, and asks all bundles for
  // panels anew, which restore themselves when they are shown. Settings that do not fit are taken
  // away, each with a note. The panels of the printer before must be out of the window. The
  // defaults are the queue's, but for custom values that do not fit, which are left out, each with
  // a note; no PPD file: the queue has none, and no panels.
  Notes UsePrinter(std::optional<PPDFile> ppd, JobOptions defaults);

  // Replaces all settings, by those of a ticket or preset; those that a panel has locked stay, each
  // with a note. What does not fit the printer, if there is one yet, is taken away, each with a
  // note. Panels in the window must be restored afterwards.
  Notes UseSettings(PrintSettings settings);

  const PPDFile *ppd() const { return ppd_ ? &*ppd_ : nullptr; }
  // Always the same object. What panels claim and the user has not set is set here to what the job
  // would be printed with, for the panels to show; it gives way when the printer changes.
  PMPrintSettings settings() const { return settings_.get(); }
  const ExtensionPanels &panels() const { return panels_; }
  // Drops the panels that have shown a fault; they are then among the bundles left out.
  void DropFaultyPanels();
  // Why there is no panel, where there is none.
  std::string ReasonForNoPanel() const { return extensions_.ReasonForNoPanel(ppd()); }

  // Why the settings may be others than those that were asked for, or could not be read completely:
  // the print system failed. From then on nothing may be printed, nor written, of what this object
  // answers; ask for this last.
  const std::optional<Failure> &fault() const { return fault_; }

  std::string Value(const std::string &keyword) const;  // empty: not set
  // An empty value takes it away. The failure: all is as before.
  Expected<void> Set(const std::string &keyword, const std::string &value);
  // The settings as job options.
  JobOptions OwnOptions() const;
  // What the job is printed with if nothing more is set: the queue's defaults under the settings.
  JobOptions Options() const;
  // The choice of a PPD option as the job stands: set, the queue's default, or the file's.
  std::string Choice(const std::string &keyword) const;

  // The PPD options that no panel shows.
  std::vector<PPDOption> OtherOptions() const;

  // Changes the choice of a PPD option from outside the panels, and tells them. The failure: all is
  // as before.
  Expected<void> ChangeOption(const std::string &keyword, const std::string &choice);

  // Why the job cannot be printed as it stands: there is a fault, a panel does not allow it, or a
  // value does not fit the printer. Conflicts of choices are not looked at.
  Expected<void> CheckPrintable();

  // The localized summary of every panel that has one, under its name.
  std::vector<std::pair<std::string, SummaryLines>> Summary();

 private:
  void DropPrinter();
  std::set<std::string> Claimed() const;
  void LearnPrinterSpecificKeywords();
  bool IsAllowed(const std::string &keyword, const std::string &value) const;
  std::string DefaultOf(const std::string &keyword) const;
  void Remember(const std::string &failure) const;
  Retained<id> Stored(const std::string &keyword) const;
  // As Set, but what is locked stays without a word, and another failure is remembered.
  void Put(const std::string &keyword, const std::string &value);
  void Replace(NSString *key, id value, Notes &notes);

  // What must not reach a panel: values that are no text, and those that a bundle's setting info
  // does not allow.
  void TakeAwayBadValues(Notes &notes);
  void TakeAwayUnfitOptions(Notes &notes);
  void LeaveOutUnfitDefaults(Notes &notes);
  void TakeAway(const std::string &keyword, const std::string &why, Notes &notes);
  void SetDefaults(const std::set<std::string> &keywords);

  // Declared in the order of dependence: the panels go first, the PPD file late.
  Extensions &extensions_;
  std::optional<PPDFile> ppd_;
  JobOptions defaults_;
  PrintSettings settings_;
  Retained<HostCallback *> host_;
  ExtensionPanels panels_;
  mutable std::optional<Failure> fault_;  // the first one
  bool has_printer_ = false;
  std::set<std::string> printer_specific_;  // of all printers so far
  JobOptions defaults_set_;    // by this object, and not changed since, if they still hold
  JobOptions panel_defaults_;  // what panels set by themselves
};

#endif
