// One job: its print settings, the printer that they are for, and the panels at work on them. What
// a print dialog is apart from its window.

#ifndef HOST_SESSION_JOBSESSION_H
#define HOST_SESSION_JOBSESSION_H

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/base/Expected.h"
#include "host/cups/PrintServer.h"
#include "host/extension/Extensions.h"
#include "host/pages/JobPages.h"
#include "host/ppd/PPDFile.h"
#include "host/session/JobDefaults.h"
#include "host/session/JobSettings.h"
#include "host/session/Notes.h"
#include "host/session/QueueAbility.h"
#include "host/session/ValueCheck.h"

// Wherever the print system fails to answer or change a setting, the operation fails: nothing may
// then be printed, nor written, of what came before.
class JobSession {
 public:
  // The bundles must outlive the session.
  explicit JobSession(Extensions &extensions);
  ~JobSession();
  JobSession(const JobSession &) = delete;
  JobSession &operator=(const JobSession &) = delete;

  // Changes the printer: also loads the bundles that the PPD file names, and asks all bundles for
  // panels anew, which restore themselves when they are shown. Settings that do not fit are taken
  // away, each with a note, and so are defaults of the queue, some of which are the user's own
  // (lpoptions). The panels of the printer before must be out of the window. Offered is what the
  // queue says that jobs may ask for, formats the documents that it takes: where it cannot do what
  // bundles want, and this computer can, the PPD file has their options too. No PPD file: the queue
  // has none, and no panels. The failure: there is no printer, and all settings are lost.
  Expected<Notes> UsePrinter(std::optional<PPDFile> ppd, const JobOptions &defaults,
                             OfferedOptions offered = {}, const DocumentFormats &formats = {},
                             const std::set<std::string> &of_user = {});

  // Replaces all settings, by those of a ticket or preset; those that a panel has locked stay, each
  // with a note. What does not fit the printer, if there is one yet, is taken away, each with a
  // note. Panels in the window must be restored afterwards. The failure: as that of UsePrinter.
  Expected<Notes> UseSettings(PrintSettings settings);

  const PPDFile *ppd() const { return ppd_ ? &*ppd_ : nullptr; }
  // Always the same object, as long as nothing fails. What panels claim and the user has not set is
  // set here to what the job would be printed with, for the panels to show; it gives way when the
  // printer changes.
  PMPrintSettings settings() const { return settings_.get(); }
  const ExtensionPanels &panels() const { return panels_; }
  // Drops the panels that have shown a fault; they are then among the bundles left out.
  void DropFaultyPanels();
  // Why there is no panel, where there is none.
  std::string ReasonForNoPanel() const;
  // The bundles whose options somebody does something with, and who that is.
  const Applications &applications() const { return applications_; }
  // What is to be done here when the job is printed; none: nothing.
  const std::optional<PagesHere> &here() const { return here_; }
  // Why bundles are not applied here that nobody else applies; empty: there is no such reason.
  const std::string &why_not_here() const { return why_not_here_; }

  // What fits the printer and its panels.
  const ValueCheck &check() const { return check_; }

  Expected<std::string> Value(const std::string &keyword) const;  // empty: not set
  // An empty value takes it away. The failure, also that it is locked: all is as before.
  Expected<void> Set(const std::string &keyword, const std::string &value);
  // The settings as job options.
  Expected<JobOptions> OwnOptions() const { return settings_.Options(); }
  // What the job is printed with if nothing more is set: the queue's defaults under the settings.
  Expected<JobOptions> Options() const;
  // The choices of the PPD options as the job stands: set, the queue's defaults, or the file's.
  Expected<JobOptions> Choices() const;

  // The PPD options that no panel shows.
  std::vector<PPDOption> OtherOptions() const;
  // Whether a panel shows the option of this keyword.
  bool IsClaimed(const std::string &keyword) const { return Claimed().contains(keyword); }
  // What the queue says that jobs may ask for.
  const OfferedOptions &offered() const { return offered_; }

  // Changes the choice of a PPD option from outside the panels, and tells them. The failure: all is
  // as before.
  Expected<void> ChangeOption(const std::string &keyword, const std::string &choice);

  // That the job can be printed as it stands. The failure: a panel does not allow it, or a value
  // does not fit the printer. Conflicts of choices are not looked at.
  Expected<void> CheckPrintable();

  // The job as it stands, to be sent to this queue. An empty title: the files' names.
  Expected<JobRequest> RequestFor(const std::string &queue,
                                  const std::vector<std::filesystem::path> &files,
                                  const std::string &title = "") const;

  // Its pages as they would be printed, to be looked at or kept. The failure: the printer has no
  // PPD file.
  Expected<PagesRequest> PagesFor(const std::vector<std::filesystem::path> &files,
                                  const std::string &title = "") const;

  // Does work that changes the settings, and puts them back: as if somebody had only looked. The
  // failure: they cannot be read, and nothing is done, or not be put back, and stay changed.
  Expected<void> PutBackAfter(const std::function<void()> &work);

  // The localized summary of every panel that has one, under its name.
  std::vector<std::pair<std::string, SummaryLines>> Summary();

 private:
  Expected<Notes> Take(std::optional<PPDFile> ppd, const JobOptions &defaults,
                       OfferedOptions offered, const DocumentFormats &formats,
                       const std::set<std::string> &of_user);
  void TakeAbility(std::optional<PPDFile> ppd, const DocumentFormats &formats);
  Expected<void> TakePanels(Notes &notes);
  Expected<Notes> Use(PMPrintSettings settings);
  bool IsTwoSided() const;
  void DropPrinter();
  void LoseSettings();

  std::set<std::string> Claimed() const;
  void LearnWhatFits();
  Expected<void> MakeFit(Notes &notes);
  Expected<void> WithdrawFilledIn();
  Expected<void> FillIn(const std::set<std::string> &also);

  // Declared in the order of dependence: the panels go first, the PPD file late.
  Extensions &extensions_;
  std::optional<PPDFile> ppd_;
  JobSettings settings_;
  JobDefaults defaults_;
  Retained<HostCallback *> host_;
  ExtensionPanels panels_;
  OfferedOptions offered_;
  Applications applications_;
  std::optional<PagesHere> here_;
  PageMaking making_;
  std::string why_not_here_;
  ValueCheck check_;
  bool has_printer_ = false;
  std::set<std::string> printer_specific_;  // of all printers so far
  JobOptions filled_in_;  // by this object, and not changed since, if it still holds
};

#endif
