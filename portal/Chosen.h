// What people chose in the dialog, as pdeprint says it.

#ifndef PORTAL_CHOSEN_H
#define PORTAL_CHOSEN_H

#include <optional>
#include <string>
#include <string_view>

#include "host/base/JobOptions.h"

// Sizes and margins are in millimeters, of the paper as it stands upright.
struct Paper {
  std::string name;  // as the printer has it: "A4", "iso_a4_210x297mm", "Custom.100x200mm"
  double width = 0, height = 0;
  double top = 0, bottom = 0, left = 0, right = 0;
};

struct Chosen {
  std::string queue = {};
  std::optional<Paper> paper = {};  // none: the queue does not say
  JobOptions settings = {};
};

enum class Outcome { kAccepted, kPrinted, kSaved, kCanceled, kFailed };

struct DialogResult {
  Outcome outcome = Outcome::kFailed;
  Chosen chosen = {};
};

// What stands in the answer of `pdeprint show --json`. One that is none means that it has failed.
DialogResult ReadResult(std::string_view json);

#endif
