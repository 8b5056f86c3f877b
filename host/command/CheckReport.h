// What `pdeprint check` says of PPD files.

#ifndef HOST_COMMAND_CHECKREPORT_H
#define HOST_COMMAND_CHECKREPORT_H

#include <string>
#include <vector>

#include "host/session/Application.h"

struct CheckResult {
  std::string file;
  bool readable = false;
  bool color = false;                    // only where readable
  std::vector<std::string> panels = {};  // names; empty: not offered
  std::string reason = {};               // why not, or why it cannot be read
  Applications applications = {};        // who does what panels say
};

// One line a file.
std::string CheckText(const std::vector<CheckResult> &results);

// An array of {"file", "readable", "offered", "color", "panels", "applied", "reason"}; color is
// null where the file cannot be read, reason where a panel is offered; applied as in QueuesJson.
std::string CheckJson(const std::vector<CheckResult> &results);

#endif
