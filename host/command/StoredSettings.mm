#include "host/command/StoredSettings.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/job/SettingOptions.h"
#include "host/job/SettingValues.h"

namespace {

// The preset, the ticket.
std::string NameOf(const JobSource &source) {
  std::string name = source.preset.empty() ? "" : Quoted(source.preset);
  if (!source.ticket.empty()) name += (name.empty() ? "" : ", ") + source.ticket.string();
  return name;
}

bool IsTextOrNumber(id value) {
  return [value isKindOfClass:[NSString class]] || [value isKindOfClass:[NSNumber class]];
}

Expected<void> CheckKinds(PMPrintSettings settings, const ValueCheck &check,
                          const JobSource &source) {
  for (const Setting &setting : check.settings()) {
    Expected<Retained<id>> value =
        ValueOf(settings, [NSString stringWithUTF8String:setting.key.c_str()]);
    if (!value) return value.failure();
    if (value->get() == nil || IsTextOrNumber(value->get())) continue;
    return Failure{
        Localized("cannot use %1: the value of %2 is not a string", {NameOf(source), setting.key})};
  }
  return {};
}

}  // namespace

Expected<void> CheckStored(PMPrintSettings settings, const ValueCheck &check,
                           const JobSource &source) {
  if (auto kinds = CheckKinds(settings, check, source); !kinds) return kinds;
  Expected<JobOptions> options = JobOptionsFromSettings(settings);
  if (!options) return options.failure();
  for (const auto &[key, value] : *options) {
    const Expected<std::string> fitting = check.Fitting(key, value);
    if (fitting) continue;
    const Setting *setting = check.SettingOf(key);
    if (setting != nullptr && check.FittingPanels(key, value)) continue;
    return Failure{Localized(
        "the job's %1 is %2: %3; mend it with --set %4=VALUE",
        {key, Quoted(value), fitting.message(), setting == nullptr ? key : setting->name})};
  }
  return {};
}
