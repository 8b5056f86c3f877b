// A setting that can be changed without its panel.

#ifndef HOST_EXTENSION_SETTING_H
#define HOST_EXTENSION_SETTING_H

#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"

// One setting: its name, the print-settings key under which it is stored, and what may be stored,
// either one of the choices or, where there are none, a whole number of a range.
struct Setting {
  std::string name;
  std::string key;
  std::vector<std::string> choices = {};
  long min = 0;
  long max = 0;

  // The allowed values, for people: "it must be one of Small, Large".
  std::string Demand() const;
  // The value as it is stored ("007" is stored as "7"). The failure: Demand().
  Expected<std::string> Check(std::string_view value) const;
};

#endif
