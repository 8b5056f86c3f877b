// The questions about choices that the printer cannot combine.

#ifndef HOST_DIALOG_CONFLICTQUESTIONS_H
#define HOST_DIALOG_CONFLICTQUESTIONS_H

#include <functional>
#include <set>
#include <string>

#include "host/base/JobOptions.h"
#include "host/ppd/PPDFile.h"

// Each pair of choices is asked about once as long as the object lives.
class ConflictQuestions {
 public:
  // How the user is asked: as Ask and Tell in Prompt.h.
  struct Prompts {
    std::function<bool(const std::string &message, const std::string &yes, const std::string &no)>
        ask;
    std::function<void(const std::string &message)> tell;
  };

  explicit ConflictQuestions(Prompts prompts);

  // Asks about the conflicts between these job options, one by one, until the user agrees to a
  // change, and answers the options to be changed and their choices. Empty: nothing is changed.
  // What was chosen last (empty: nothing) is not proposed for a change.
  JobOptions Ask(const PPDFile &ppd, const JobOptions &options, const std::string &chosen);

 private:
  Prompts prompts_;
  std::set<std::set<std::string>> asked_;
};

#endif
