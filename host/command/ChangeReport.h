// What enable and disable say of all queues.

#ifndef HOST_COMMAND_CHANGEREPORT_H
#define HOST_COMMAND_CHANGEREPORT_H

#include <string>
#include <vector>

enum class ChangeState {
  kChanged,    // the queue has a new PPD file
  kWritten,    // it is for the administrator to give to the queue
  kUnchanged,  // there was nothing to do
  kRefused,    // that cannot be done with this queue
  kFailed,
};

struct ChangeResult {
  std::string queue;
  ChangeState state = ChangeState::kFailed;
  std::string text = {};  // a clause about the new file, or the reason
  std::vector<std::string> notes = {};
};

// A line for each queue, "NAME: changed, with the options of A", and one for each note.
std::string ChangesText(const std::vector<ChangeResult> &results);

// An array of {"queue", "state" ("changed", "written", "unchanged", "refused" or "failed"),
// "change", "reason", "notes"}; reason is null where nothing was refused or has failed, change
// where something was.
std::string ChangesJson(const std::vector<ChangeResult> &results);

#endif
