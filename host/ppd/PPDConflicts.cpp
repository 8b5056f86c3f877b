// What the choices of a job come to together: a part of PPDFile.

#include <algorithm>
#include <set>
#include <utility>

#include "host/ppd/Constraints.h"
#include "host/ppd/CustomChoice.h"
#include "host/ppd/Keywords.h"
#include "host/ppd/Marks.h"
#include "host/ppd/PPDFile.h"
#include "host/ppd/Resolution.h"

namespace {

// The option with one choice: the one in conflict, as the job has it.
PPDOption Described(const PPDFile &ppd, const ppd_choice_t &choice, const JobOptions &options) {
  std::optional<PPDOption> option = ppd.Option(KeywordForPeople(choice.option->keyword));
  if (!option) option = ppd.Option(choice.option->keyword);
  PPDOption described = option.value_or(PPDOption{});
  std::string keyword = choice.choice;
  const auto asked_for = options.find(described.keyword);
  if (keyword == kCustomChoice && asked_for != options.end()) keyword = asked_for->second;
  const auto listed = std::ranges::find(described.choices, keyword, &PPDChoice::keyword);
  described.choices = {listed == described.choices.end() ? PPDChoice{keyword, keyword} : *listed};
  return described;
}

}  // namespace

JobOptions PPDFile::Choices(const JobOptions &options) const {
  return MarkedChoices(ppd_.get(), options);
}

std::string PPDFile::ChoiceOf(const std::string &option, const JobOptions &options) const {
  const Marks marks(ppd_.get(), options);
  const ppd_choice_t *choice = MarkedChoice(ppd_.get(), option.c_str());
  return choice == nullptr ? "" : choice->choice;
}

std::vector<PPDConflict> PPDFile::Conflicts(const JobOptions &options) const {
  const Marks marks(ppd_.get(), options);
  std::vector<PPDConflict> conflicts;
  std::set<std::pair<const ppd_choice_t *, const ppd_choice_t *>> seen;
  for (const ForbiddenChoices &choices :
       BrokenConstraints(ppd_.get(), Attributes("cupsUIConstraints"))) {
    const ppd_choice_t *first = choices.front();
    for (size_t at = choices.size() > 1 ? 1 : 0; at < choices.size(); ++at) {
      if (!seen.insert(std::minmax(first, choices[at])).second) continue;
      conflicts.push_back(
          {Described(*this, *first, options), Described(*this, *choices[at], options)});
    }
  }
  return conflicts;
}

std::optional<JobOptions> PPDFile::Resolution(const JobOptions &options,
                                              const std::string &keep) const {
  return ResolutionOf(*this, options, keep);
}
