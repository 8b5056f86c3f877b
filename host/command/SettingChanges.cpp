#include "host/command/SettingChanges.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"
#include "host/job/OptionFit.h"

namespace {

// What the print system does for any printer. Others would be sent and silently ignored, as would
// be one that is misspelt.
constexpr std::array<std::string_view, 28> kJobOptionsOfEveryPrinter = {
    "collate",       "copies",           "finishings",
    "fit-to-page",   "job-billing",      "job-hold-until",
    "job-priority",  "job-sheets",       "landscape",
    "media",         "mirror",           "multiple-document-handling",
    "number-up",     "number-up-layout", "orientation-requested",
    "outputorder",   "page-border",      "page-bottom",
    "page-left",     "page-ranges",      "page-right",
    "page-set",      "page-top",         "print-color-mode",
    "print-quality", "print-scaling",    "printer-resolution",
    "sides"};

std::string Names(const std::vector<Setting> &settings) {
  std::string names;
  for (const Setting &setting : settings) names += (names.empty() ? "" : ", ") + setting.name;
  return names;
}

// The change, if the printer can do it.
Expected<SettingChange> Fitting(SettingChange change, const PPDFile *ppd) {
  const std::vector<UnfitOption> unfit = UnfitOptions({{change.key, change.value}}, ppd, {});
  const auto refusal = [&change](const std::string &reason) {
    return Failure{Localized("%1 cannot be %2: %3", {change.name, Quoted(change.value), reason})};
  };
  if (!unfit.empty()) return refusal(unfit.front().reason);
  if (change.value.empty()) return refusal(Localized("it must have a value"));
  if (ToUtf8(change.value) != change.value) return refusal(Localized("it is not UTF-8"));
  return change;
}

Expected<SettingChange> Parse(const std::string &text, const std::vector<Setting> &settings,
                              const PPDFile *ppd) {
  const size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    return Failure{Localized("--set %1: write NAME=VALUE, for instance StartNumber=25", {text})};
  }
  const std::string name = text.substr(0, equals);
  const std::string value = text.substr(equals + 1);
  const auto setting = std::find_if(
      settings.begin(), settings.end(),
      [&name](const Setting &known) { return known.name == name || known.key == name; });
  if (setting != settings.end()) {
    Expected<std::string> stored = setting->Check(value);
    if (!stored) return stored.failure();
    return Fitting({setting->name, setting->key, *stored}, ppd);
  }
  const bool is_ppd_option = ppd != nullptr && ppd->HasOption(name);
  if (is_ppd_option || std::find(kJobOptionsOfEveryPrinter.begin(), kJobOptionsOfEveryPrinter.end(),
                                 name) != kJobOptionsOfEveryPrinter.end()) {
    return Fitting({name, name, value}, ppd);
  }
  const std::string names = Names(settings);
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

}  // namespace

Expected<std::vector<SettingChange>> ParseSettingChanges(const std::vector<std::string> &texts,
                                                         const std::vector<Setting> &settings,
                                                         const PPDFile *ppd) {
  std::vector<SettingChange> changes;
  for (const std::string &text : texts) {
    Expected<SettingChange> change = Parse(text, settings, ppd);
    if (!change) return change.failure();
    changes.push_back(std::move(*change));
  }
  return changes;
}
