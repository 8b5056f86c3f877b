#include "host/ppd/Resolution.h"

#include <algorithm>
#include <vector>

#include "host/ppd/CupsOptions.h"
#include "host/ppd/Keywords.h"
#include "host/ppd/Marks.h"

namespace {

// What may not change if the option `keep` is to stay as it is: its choice, or those that it stands
// for.
JobOptions KeptChoices(ppd_file_t *ppd, const JobOptions &options, const std::string &keep) {
  JobOptions without = options;
  without.erase(keep);
  const JobOptions otherwise = MarkedChoices(ppd, without);
  const std::string keyword = KeywordForPeople(keep.c_str());
  JobOptions kept;
  for (const auto &[option, choice] : MarkedChoices(ppd, options)) {
    const auto other = otherwise.find(option);
    if (option == keyword || other == otherwise.end() || other->second != choice) {
      kept[option] = choice;
    }
  }
  return kept;
}

JobOptions ProposalOfLibcups(const PPDFile &ppd, const JobOptions &options,
                             const JobOptions &kept) {
  const Marks marks(ppd.get(), options);
  const char *keyword = kept.empty() ? nullptr : kept.begin()->first.c_str();
  const char *choice = kept.empty() ? nullptr : kept.begin()->second.c_str();
  int count = 0;
  cups_option_t *changes = nullptr;
  cupsResolveConflicts(ppd.get(), keyword, choice, &count, &changes);
  return CupsOptions(count, changes).Content();
}

// Those of the changes that a job may ask for and that change something.
JobOptions Usable(const JobOptions &changes, const std::vector<PPDOption> &options_of_jobs,
                  const JobOptions &marked) {
  JobOptions usable;
  for (const auto &[keyword, proposed] : changes) {
    const std::string &value = proposed;
    const auto option =
        std::ranges::find(options_of_jobs, KeywordForPeople(keyword.c_str()), &PPDOption::keyword);
    if (option == options_of_jobs.end()) continue;
    const auto choice = std::ranges::find_if(option->choices, [&](const PPDChoice &listed) {
      return IsSame(listed.keyword.c_str(), value.c_str());
    });
    if (choice == option->choices.end()) continue;
    const auto before = marked.find(option->keyword);
    if (before != marked.end() && before->second == choice->keyword) continue;
    usable[option->keyword] = choice->keyword;
  }
  return usable;
}

JobOptions Changed(JobOptions options, const JobOptions &changes) {
  for (const auto &[keyword, value] : changes) options[keyword] = value;
  return options;
}

// Sets, one after the other, what is in conflict to its default, as long as that leads anywhere.
JobOptions ProposalOfDefaults(const PPDFile &ppd, const JobOptions &options,
                              const JobOptions &kept) {
  JobOptions changes;
  bool has_changed = true;
  while (has_changed) {
    has_changed = false;
    for (const PPDConflict &conflict : ppd.Conflicts(Changed(options, changes))) {
      for (const PPDOption *side : {&conflict.second, &conflict.first}) {
        if (has_changed || kept.contains(side->keyword) || side->default_choice.empty()) continue;
        has_changed = changes.emplace(side->keyword, side->default_choice).second;
      }
    }
  }
  return changes;
}

bool Keeps(const JobOptions &marked, const JobOptions &kept) {
  return std::ranges::includes(marked, kept);
}

}  // namespace

std::optional<JobOptions> ResolutionOf(const PPDFile &ppd, const JobOptions &options,
                                       const std::string &keep) {
  const JobOptions marked = MarkedChoices(ppd.get(), options);
  const JobOptions kept = KeptChoices(ppd.get(), options, keep);
  const std::vector<PPDOption> options_of_jobs = ppd.Options();
  for (const auto &propose : {ProposalOfLibcups, ProposalOfDefaults}) {
    JobOptions changes = Usable(propose(ppd, options, kept), options_of_jobs, marked);
    changes.erase(KeywordForPeople(keep.c_str()));
    const JobOptions changed = Changed(options, changes);
    if (ppd.Conflicts(changed).empty() && Keeps(MarkedChoices(ppd.get(), changed), kept)) {
      return changes;
    }
  }
  return std::nullopt;
}
