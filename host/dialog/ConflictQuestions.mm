#include "host/dialog/ConflictQuestions.h"

#include <optional>
#include <utility>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"

namespace {

// The two option choices, in an order of their own: a pair is the same pair the other way round.
std::set<std::string> Pair(const PPDConflict &conflict) {
  const auto name = [](const PPDOption &option) {
    return option.keyword + ' ' + option.choices.front().keyword;
  };
  return {name(conflict.first), name(conflict.second)};
}

std::string DescribeChoice(const PPDOption &option) {
  const PPDChoice &choice = option.choices.front();
  return option.text + " \"" + choice.text + "\" (" + option.keyword + ' ' + choice.keyword + ')';
}

std::string Describe(const PPDConflict &conflict) {
  return Text(
      Sentence(Localized("%1 and %2 cannot be combined on this printer",
                         {DescribeChoice(conflict.first), DescribeChoice(conflict.second)})));
}

std::string Describe(const JobOptions &changes) {
  std::string text;
  for (const auto &[keyword, choice] : changes) {
    text += (text.empty() ? "" : ", ") + keyword + "=" + choice;
  }
  return text;
}

}  // namespace

ConflictQuestions::ConflictQuestions(Prompts prompts) : prompts_(std::move(prompts)) {}

JobOptions ConflictQuestions::Ask(const PPDFile &ppd, const JobOptions &options,
                                  const std::string &chosen) {
  for (const PPDConflict &conflict : ppd.Conflicts(options)) {
    if (!asked_.insert(Pair(conflict)).second) continue;
    const std::string message = Describe(conflict);
    std::optional<JobOptions> changes = ppd.Resolution(options, chosen);
    if (!changes || changes->empty()) {
      prompts_.tell(message + "\n\n" + Localized("Change one of them."));
      continue;
    }
    const std::string proposal = Localized("Proposed change: %1", {Describe(*changes)});
    if (prompts_.ask(message + "\n\n" + proposal, Localized("Change"), Localized("Keep Both"))) {
      return std::move(*changes);
    }
  }
  return {};
}
