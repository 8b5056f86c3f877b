// A job that is made up without a window, for `settings` and `print`.

#ifndef HOST_COMMAND_SCRIPTEDJOB_H
#define HOST_COMMAND_SCRIPTEDJOB_H

#include <functional>
#include <string>
#include <vector>

#include "host/command/Commands.h"
#include "host/command/PanelReport.h"
#include "host/cups/Queue.h"
#include "host/session/JobSession.h"

struct ScriptedJob {
  const std::string &printer;  // its name, for people
  const Queue &queue;
  JobSession &session;
};

// Opens the printer, the bundles and the settings to begin with, makes the changes, and checks that
// the job can be printed as it stands; then does the work. Complains of whatever is wrong; the
// answer is the exit status. A change that is not allowed, of a setting that the printer does not
// have, or that the printer's panels take back, is wrong usage.
int WithScriptedJob(const JobSource &source, const std::vector<std::string> &changes,
                    const std::function<int(const ScriptedJob &)> &work);

// The same for files, which must be there, as must the ticket.
int WithFileJob(const FileJobOptions &options, const std::function<int(const ScriptedJob &)> &work);

// What the panels say of the job, and its settings as job options.
Expected<PanelReport> ReportOn(JobSession &session);

#endif
