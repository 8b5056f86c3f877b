#include "host/extension/Setting.h"

#include <algorithm>
#include <charconv>

std::string Setting::Allowed() const {
  if (choices.empty()) {
    return "a whole number from " + std::to_string(min) + " to " + std::to_string(max);
  }
  std::string list;
  for (const std::string &choice : choices) {
    if (!list.empty()) list += ", ";
    list += choice;
  }
  return choices.size() == 1 ? list : "one of " + list;
}

Expected<std::string> Setting::Check(std::string_view value) const {
  const Failure refusal{name + " cannot be \"" + std::string(value) + "\": it must be " +
                        Allowed()};
  if (!choices.empty()) {
    if (std::find(choices.begin(), choices.end(), value) == choices.end()) return refusal;
    return std::string(value);
  }
  long number = 0;
  const auto [end, error] = std::from_chars(value.begin(), value.end(), number);
  if (error != std::errc() || end != value.end() || number < min || number > max) return refusal;
  return std::to_string(number);
}

std::vector<Setting> SettingsWithBadValues(const std::vector<Setting> &settings,
                                           const JobOptions &options) {
  std::vector<Setting> bad;
  for (const Setting &setting : settings) {
    const auto stored = options.find(setting.key);
    if (stored == options.end()) continue;
    Expected<std::string> value = setting.Check(stored->second);
    if (!value || *value != stored->second) bad.push_back(setting);
  }
  return bad;
}
