#include "host/session/JobDefaults.h"

#include <algorithm>
#include <vector>

#include "host/job/CommonOptions.h"

namespace {

// Whether one of them does, under another name.
bool SaysTheSame(const JobOptions &options, const std::string &key) {
  return std::ranges::any_of(options, [&key](const auto &option) {
    return option.first != key && IsSameThing(option.first, key);
  });
}

}  // namespace

Notes JobDefaults::UseQueue(const JobOptions &defaults, const std::set<std::string> &of_user,
                            const ValueCheck &check) {
  Notes notes;
  of_queue_.clear();
  for (const auto &[key, value] : defaults) {
    if (Expected<std::string> fitting = check.Fitting(key, value)) {
      of_queue_[key] = *fitting;
    } else {
      notes.push_back(DefaultDoesNotFit(key, value, fitting.message(), of_user.contains(key)));
    }
  }
  return notes;
}

std::string JobDefaults::Of(const std::string &key, const PPDFile *ppd,
                            const ValueCheck &check) const {
  const auto in = [&key](const JobOptions &options) {
    const auto found = options.find(key);
    return found == options.end() ? std::string() : found->second;
  };
  std::vector<std::string> candidates = {in(of_queue_)};
  if (ppd != nullptr) {
    candidates.push_back(ppd->ChoiceOf(key, of_queue_));  // under another name, too
    candidates.push_back(ppd->DefaultChoice(key));
  }
  candidates.push_back(in(of_panels_));
  for (const std::string &candidate : candidates) {
    if (candidate.empty()) continue;
    if (Expected<std::string> fitting = check.Fitting(key, candidate)) return *fitting;
  }
  return "";
}

JobOptions JobDefaults::Under(const JobOptions &own, const JobOptions &filled_in,
                              const PPDFile *ppd) const {
  JobOptions chosen = own;
  JobOptions defaults = of_queue_;
  for (const auto &[key, value] : filled_in) {
    const auto found = chosen.find(key);
    if (found == chosen.end() || found->second != value) continue;
    chosen.erase(found);
    defaults[key] = value;
  }
  JobOptions options = chosen;
  const std::set<std::string> beaten =
      ppd == nullptr ? std::set<std::string>() : ppd->ChangedBy(chosen, defaults);
  for (const auto &[key, value] : defaults) {
    if (beaten.contains(key) || SaysTheSame(chosen, key)) continue;
    if (ppd != nullptr && !ppd->ChangedBy({{key, value}}, chosen).empty()) continue;
    options.emplace(key, value);
  }
  return options;
}
