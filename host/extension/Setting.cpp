#include "host/extension/Setting.h"

#include <algorithm>
#include <charconv>

#include "host/base/Localized.h"

std::string Setting::Demand() const {
  if (choices.empty()) {
    return Localized("it must be a whole number from %1 to %2",
                     {std::to_string(min), std::to_string(max)});
  }
  std::string list;
  for (const std::string &choice : choices) list += (list.empty() ? "" : ", ") + choice;
  return choices.size() == 1 ? Localized("it must be %1", {list})
                             : Localized("it must be one of %1", {list});
}

Expected<std::string> Setting::Check(std::string_view value) const {
  if (!choices.empty()) {
    if (std::find(choices.begin(), choices.end(), value) == choices.end()) return Failure{Demand()};
    return std::string(value);
  }
  long number = 0;
  const auto [end, error] = std::from_chars(value.begin(), value.end(), number);
  if (error != std::errc() || end != value.end() || number < min || number > max) {
    return Failure{Demand()};
  }
  return std::to_string(number);
}
