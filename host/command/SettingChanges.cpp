#include "host/command/SettingChanges.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Text.h"

namespace {

std::string Names(const std::vector<Setting> &settings) {
  std::string names;
  for (const Setting &setting : settings) names += (names.empty() ? "" : ", ") + setting.name;
  return names;
}

Failure NoSuchSetting(const std::string &text, const std::string &name, const ValueCheck &check) {
  const std::string names = Names(check.settings());
  if (names.empty()) {
    return Failure{Localized(
        "--set %1: there is no setting %2; there are the options of the printer and of every job, "
        "such as copies",
        {text, Quoted(name)})};
  }
  return Failure{Localized(
      "--set %1: there is no setting %2; there are %3, the options of the printer and of every "
      "job, such as copies",
      {text, Quoted(name), names})};
}

Expected<SettingChange> Parse(const std::string &text, const ValueCheck &check) {
  const size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    return Failure{Localized("--set %1: write NAME=VALUE, for instance StartNumber=25", {text})};
  }
  const std::string name = text.substr(0, equals);
  const std::string value = text.substr(equals + 1);
  const auto setting = std::ranges::find_if(check.settings(), [&name](const Setting &known) {
    return known.name == name || known.key == name;
  });
  const bool is_setting = setting != check.settings().end();
  SettingChange change = {is_setting ? setting->name : name, is_setting ? setting->key : name, "",
                          ""};
  if (!check.Knows(change.key)) return NoSuchSetting(text, name, check);
  Expected<std::string> fitting = check.Fitting(change.key, value);
  if (!fitting) {
    return Failure{
        Localized("%1 cannot be %2: %3", {change.name, Quoted(value), fitting.message()})};
  }
  change.value = std::move(*fitting);
  change.note = check.NoteOfReplacing(change.key, value);
  return change;
}

}  // namespace

Expected<std::vector<SettingChange>> ParseSettingChanges(const std::vector<std::string> &texts,
                                                         const ValueCheck &check) {
  std::vector<SettingChange> changes;
  for (const std::string &text : texts) {
    Expected<SettingChange> change = Parse(text, check);
    if (!change) return change.failure();
    std::erase_if(changes,
                  [&change](const SettingChange &earlier) { return earlier.key == change->key; });
    changes.push_back(std::move(*change));
  }
  return changes;
}
