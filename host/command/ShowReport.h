// How a dialog has ended, for programs.

#ifndef HOST_COMMAND_SHOWREPORT_H
#define HOST_COMMAND_SHOWREPORT_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/base/JobOptions.h"
#include "host/ppd/PaperSizes.h"

struct NamedPaper {
  std::string name;  // the choice of PageSize
  Paper paper;
};

// What the job was to be, where it was accepted, printed or saved.
struct ShownJob {
  std::string queue = {};  // empty: none
  std::optional<NamedPaper> paper = {};
  bool is_landscape = false;
  JobOptions settings = {};
};

struct ShowReport {
  enum class Outcome { kAccepted, kPrinted, kSaved, kCanceled, kFailed };
  Outcome outcome = Outcome::kFailed;
  std::string reason = {};                        // of a failure
  int job = 0;                                    // its number; 0: the server has taken none
  std::vector<std::filesystem::path> files = {};  // that were saved
  std::optional<ShownJob> shown = {};

  // {"outcome", "reason", "queue", "job", "files", "paper": {"name", "width", "height", "margins":
  // {"top", "bottom", "left", "right"}}, "orientation", "settings": {name: value...}}: the first
  // always, others as far as there is something to say. Lengths are in millimeters.
  std::string Json() const;
};

#endif
