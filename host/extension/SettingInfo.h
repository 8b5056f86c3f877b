// The settings that a bundle lets be changed without its panel.

#ifndef HOST_EXTENSION_SETTINGINFO_H
#define HOST_EXTENSION_SETTINGINFO_H

#import <Foundation/Foundation.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"

// One setting: its name, the print-settings key under which it is stored, and what may be stored,
// either one of the choices or, where there are none, a whole number of a range.
struct Setting {
  std::string name;
  std::string key;
  std::vector<std::string> choices;
  long min = 0;
  long max = 0;

  // The allowed values, for people.
  std::string Allowed() const;
  // The value as it is stored ("007" is stored as "7"). The failure names what is allowed.
  Expected<std::string> Check(std::string_view value) const;
};

// The settings of the resource that the bundle's Info.plist names under PDESettingInfo: the names
// and keys of its section TicketKey, the choices of PopUpItem, the ranges of DefaultValue (entries
// ending in Min and Max); a setting with neither is On or Off.
Expected<std::vector<Setting>> SettingsOfBundle(NSBundle *bundle);

// Those settings whose stored value, among these job options by key, is none of the allowed ones.
std::vector<Setting> SettingsWithBadValues(const std::vector<Setting> &settings,
                                           const std::map<std::string, std::string> &options);

#endif
