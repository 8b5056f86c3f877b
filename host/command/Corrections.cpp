#include "host/command/Corrections.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"

std::optional<Refusal> ReasonAgainstChanges(const std::vector<SettingChange> &changes,
                                            const JobOptions &options) {
  for (const SettingChange &change : changes) {
    const auto now = options.find(change.key);
    if (now != options.end() && now->second == change.value) continue;
    const std::string reason = now == options.end()
                                   ? Localized("this printer has no %1", {change.key})
                                   : Localized("it must be %1", {now->second});
    return Refusal{kWrongUsage,
                   Localized("%1 cannot be %2: %3", {change.name, Quoted(change.value), reason})};
  }
  return std::nullopt;
}

std::optional<Refusal> ExplainCorrections(const JobOptions &before, const JobOptions &after,
                                          const std::vector<SettingChange> &changes) {
  for (const auto &[key, value] : before) {
    const auto now = after.find(key);
    const std::string corrected = now == after.end() ? "" : now->second;
    if (corrected == value) continue;
    for (const SettingChange &change : changes) {
      if (change.key != key) continue;
      const std::string demand = corrected.empty() ? Localized("it must be unset")
                                                   : Localized("it must be %1", {corrected});
      return Refusal{kWrongUsage, Localized("%1 cannot be %2 on this printer: %3",
                                            {change.name, Quoted(value), demand})};
    }
    const std::string given = key + "=" + value;
    Note(corrected.empty()
             ? Localized("this printer cannot do %1; it is now unset", {given})
             : Localized("this printer cannot do %1; it is now %2", {given, corrected}));
  }
  return std::nullopt;
}
