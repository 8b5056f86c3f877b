// Changes that a command line asks for.

#ifndef HOST_COMMAND_SETTINGCHANGES_H
#define HOST_COMMAND_SETTINGCHANGES_H

#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/extension/Setting.h"
#include "host/ppd/PPDFile.h"

struct SettingChange {
  std::string name;   // as it was asked for
  std::string key;    // of the print setting
  std::string value;  // as it is stored
};

// The changes that these texts, NAME=VALUE, ask for: settings of bundles by their names, options of
// the PPD file (if any) by their keywords, and job options of every printer, such as copies,
// page-ranges or number-up. The failure: no such name, or a value that is not allowed for it.
Expected<std::vector<SettingChange>> ParseSettingChanges(const std::vector<std::string> &texts,
                                                         const std::vector<Setting> &settings,
                                                         const PPDFile *ppd);

#endif
