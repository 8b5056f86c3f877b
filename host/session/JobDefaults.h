// What a job is printed with where nobody has chosen anything, and why.

#ifndef HOST_SESSION_JOBDEFAULTS_H
#define HOST_SESSION_JOBDEFAULTS_H

#include <set>
#include <string>

#include "host/base/JobOptions.h"
#include "host/ppd/PPDFile.h"
#include "host/session/Notes.h"
#include "host/session/ValueCheck.h"

class JobDefaults {
 public:
  // Takes the defaults of a queue in the place of those before, in the form in which they fit.
  // Those that do not are left out, with a note each: the printer would make something else of
  // them. Some are the user's own (lpoptions).
  Notes UseQueue(const JobOptions &defaults, const std::set<std::string> &of_user,
                 const ValueCheck &check);
  // Remembers what a panel has set by itself.
  void AddPanels(const std::string &key, const std::string &value) { of_panels_[key] = value; }

  // The default of a key: the queue's, also under another name, the PPD file's (null: none), or a
  // panel's own, the first that fits. Empty: none.
  std::string Of(const std::string &key, const PPDFile *ppd, const ValueCheck &check) const;

  // What a job with these options of its own is printed with: the queue's defaults under them. A
  // default gives way to what is chosen under another name of the same thing (sides and Duplex,
  // landscape and orientation-requested), and so does what is only filled in, as long as it has the
  // value with which it was.
  JobOptions Under(const JobOptions &own, const JobOptions &filled_in, const PPDFile *ppd) const;

 private:
  JobOptions of_queue_;
  JobOptions of_panels_;
};

#endif
