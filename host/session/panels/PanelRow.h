// What people choose on the dialog's own panels, without its view: a panel is a list of rows.

#ifndef HOST_SESSION_PANELS_PANELROW_H
#define HOST_SESSION_PANELS_PANELROW_H

#include <functional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/JobOptions.h"
#include "host/ppd/PPDFile.h"
#include "host/session/JobSession.h"

// A caption, and a choice or a text. Functions that are left out do what is usual.
struct PanelRow {
  std::string name;     // no other row's of the panel
  std::string caption;  // in the user's language, as all texts
  // Of which the row has a value, or a part of it; empty: the option has the row's name.
  std::string option = {};
  std::string usual = {};               // the value where the job has none
  std::vector<PPDChoice> choices = {};  // none: a text is typed
  std::string hint = {};                // beside a text: what can be typed
  std::string group = {};               // the heading under which it stands; empty: none

  std::function<std::string(const JobOptions &job)> value = nullptr;
  std::function<Expected<void>(JobSession &session, const std::string &value)> choose = nullptr;
  std::function<std::string(const JobOptions &job)> why_gray = nullptr;

  const std::string &Option() const { return option.empty() ? name : option; }
  // The keyword of the choice, or the text, of a job as it stands (JobAsItStands).
  std::string ValueIn(const JobOptions &job) const;
  // Gives the job this value, and takes from it what says the same under other names. The failure:
  // all is as before.
  Expected<void> Choose(JobSession &session, const std::string &value) const;
  // Why nothing can be chosen; empty: it can.
  std::string WhyGray(const JobOptions &job) const;
  // What people read of a value.
  std::string TextOf(const std::string &value) const;
  // Whether the text, as somebody looks for it, is part of the caption, the group or a choice,
  // whatever the case of letters.
  bool Has(const std::string &text) const;
};

// The row of an option of the printer, in the words of its PPD file.
PanelRow RowOfPrinterOption(const PPDOption &option);

// All that a job is printed with: its options, and the choices of the PPD file that they come to.
Expected<JobOptions> JobAsItStands(const JobSession &session);

// The value under the key; otherwise this one.
std::string ValueOr(const JobOptions &job, const std::string &key, const std::string &otherwise);

#endif
