// Changes that a command line asks for.

#ifndef HOST_COMMAND_SETTINGCHANGES_H
#define HOST_COMMAND_SETTINGCHANGES_H

#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/session/ValueCheck.h"

struct SettingChange {
  std::string name;   // as it was asked for
  std::string key;    // of the print setting
  std::string value;  // as it is stored
  std::string note;   // that it is not what was asked for; empty: it is
};

// The changes that these texts, NAME=VALUE, ask for: settings of bundles by their names or keys,
// options of the printer by their keywords, and job options of every printer, such as copies,
// page-ranges or number-up; of several of one key the last. The failure: no such name, or a value
// that does not fit.
Expected<std::vector<SettingChange>> ParseSettingChanges(const std::vector<std::string> &texts,
                                                         const ValueCheck &check);

#endif
