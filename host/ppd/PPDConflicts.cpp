#include <strings.h>

#include <algorithm>
#include <set>
#include <span>
#include <string_view>
#include <utility>

#include "host/ppd/CustomChoice.h"
#include "host/ppd/PPDFile.h"

namespace {

bool IsSame(const char *left, const char *right) { return strcasecmp(left, right) == 0; }

bool IsPageSize(const char *keyword) {
  return IsSame(keyword, "PageSize") || IsSame(keyword, "PageRegion");
}

// PageRegion follows PageSize; people know only that one.
std::string KeywordForPeople(const char *keyword) {
  return IsPageSize(keyword) ? "PageSize" : keyword;
}

// Job options in the order that libcups asks for.
class OptionList {
 public:
  OptionList() = default;
  explicit OptionList(const JobOptions &options) {
    for (const auto &[keyword, value] : options) {
      count_ = cupsAddOption(keyword.c_str(), value.c_str(), count_, &list_);
    }
  }
  ~OptionList() { cupsFreeOptions(count_, list_); }
  OptionList(const OptionList &) = delete;
  OptionList &operator=(const OptionList &) = delete;

  void MarkIn(ppd_file_t *ppd) const { cupsMarkOptions(ppd, count_, list_); }

  // Replaces the list by the changes that end the conflicts of what is marked; false: none found.
  bool Resolve(ppd_file_t *ppd, const char *keyword, const char *choice) {
    return cupsResolveConflicts(ppd, keyword, choice, &count_, &list_) != 0;
  }

  JobOptions Content() const {
    JobOptions content;
    for (const cups_option_t &option : std::span(list_, static_cast<size_t>(count_))) {
      content[option.name] = option.value;
    }
    return content;
  }

 private:
  int count_ = 0;
  cups_option_t *list_ = nullptr;
};

// Marks the choices of a job in the file as long as it lives; then they are the defaults again.
class Marks {
 public:
  Marks(ppd_file_t *ppd, const JobOptions &options) : ppd_(ppd) {
    MarkDefaults();
    OptionList(options).MarkIn(ppd_);
  }
  ~Marks() { MarkDefaults(); }
  Marks(const Marks &) = delete;
  Marks &operator=(const Marks &) = delete;

 private:
  void MarkDefaults() {
    // Without a default page size libcups keeps the one that was marked last.
    for (int size = 0; size < ppd_->num_sizes; ++size) ppd_->sizes[size].marked = 0;
    ppdMarkDefaults(ppd_);
  }

  ppd_file_t *ppd_;
};

// One part of a constraint.
struct Term {
  ppd_option_t *option;
  ppd_choice_t *choice;  // null: every choice but those that switch the option off
};

// Forbidden is that all of them hold.
using Constraint = std::vector<Term>;

std::optional<Term> TermFor(ppd_file_t *ppd, std::string option, std::string choice) {
  constexpr size_t kPrefix = 6;
  if (strncasecmp(option.c_str(), "Custom", kPrefix) == 0 && IsSame(choice.c_str(), "True")) {
    option.erase(0, kPrefix);
    choice = kCustomChoice;
  }
  const Term term = {ppdFindOption(ppd, option.c_str()),
                     ppdFindChoice(ppdFindOption(ppd, option.c_str()), choice.c_str())};
  if (term.option == nullptr) return std::nullopt;
  if (term.choice == nullptr && !choice.empty()) return std::nullopt;
  return term;
}

// Takes what comes before the next blank from the front of the text, and the blanks.
std::string TakeWord(std::string_view &text) {
  constexpr char kBlanks[] = " \t\r\n\f\v";
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return std::string(word);
}

// From "*Option Choice *Option": what comes before an option, or after its choice, does not count.
// Empty: it names something that is not there.
Constraint ParsedConstraint(ppd_file_t *ppd, std::string_view text) {
  Constraint constraint;
  for (size_t star = text.find('*'); star != std::string_view::npos; star = text.find('*')) {
    text.remove_prefix(star + 1);
    const std::string option = TakeWord(text);
    const std::string choice = text.starts_with('*') ? "" : TakeWord(text);
    const std::optional<Term> term = TermFor(ppd, option, choice);
    if (!term) return {};
    constraint.push_back(*term);
  }
  return constraint;
}

std::vector<Constraint> ConstraintsOf(ppd_file_t *ppd, const std::vector<std::string> &texts) {
  std::vector<Constraint> constraints;
  for (int index = 0; index < ppd->num_consts; ++index) {
    const ppd_const_t &pair = ppd->consts[index];
    const std::optional<Term> first = TermFor(ppd, pair.option1, pair.choice1);
    const std::optional<Term> second = TermFor(ppd, pair.option2, pair.choice2);
    if (first && second) constraints.push_back({*first, *second});
  }
  for (const std::string &text : texts) {
    Constraint constraint = ParsedConstraint(ppd, text);
    if (!constraint.empty()) constraints.push_back(std::move(constraint));
  }
  return constraints;
}

const ppd_choice_t *MarkedChoice(ppd_file_t *ppd, const char *keyword) {
  if (!IsPageSize(keyword)) return ppdFindMarkedChoice(ppd, keyword);
  const ppd_choice_t *size = ppdFindMarkedChoice(ppd, "PageSize");
  return size != nullptr ? size : ppdFindMarkedChoice(ppd, "PageRegion");
}

// The choice that makes the term hold; null: it does not hold.
const ppd_choice_t *ChoiceInConflict(ppd_file_t *ppd, const Term &term) {
  // Of an option that takes several choices more than one may be marked.
  const bool takes_several = term.option->ui == PPD_UI_PICKMANY;
  if (term.choice != nullptr && takes_several) return term.choice->marked ? term.choice : nullptr;

  const ppd_choice_t *marked = MarkedChoice(ppd, term.option->keyword);
  if (marked == nullptr) return nullptr;
  if (term.choice != nullptr) {
    return IsSame(marked->choice, term.choice->choice) ? marked : nullptr;
  }
  for (const char *off : {"None", "Off", "False"}) {
    if (IsSame(marked->choice, off)) return nullptr;
  }
  return marked;
}

// The choices that make all terms hold; empty: one of them does not.
std::vector<const ppd_choice_t *> ChoicesInConflict(ppd_file_t *ppd, const Constraint &constraint) {
  std::vector<const ppd_choice_t *> choices;
  for (const Term &term : constraint) {
    const ppd_choice_t *choice = ChoiceInConflict(ppd, term);
    if (choice == nullptr) return {};
    choices.push_back(choice);
  }
  return choices;
}

// The choices of all options of a job, as libcups understands it.
JobOptions MarkedChoices(ppd_file_t *ppd, const JobOptions &options) {
  const Marks marks(ppd, options);
  JobOptions choices;
  for (auto *marked = static_cast<ppd_choice_t *>(cupsArrayFirst(ppd->marked)); marked != nullptr;
       marked = static_cast<ppd_choice_t *>(cupsArrayNext(ppd->marked))) {
    choices[KeywordForPeople(marked->option->keyword)] = marked->choice;
  }
  return choices;
}

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
  OptionList proposal;
  const bool is_any_kept = !kept.empty();
  const char *keyword = is_any_kept ? kept.begin()->first.c_str() : nullptr;
  const char *choice = is_any_kept ? kept.begin()->second.c_str() : nullptr;
  if (!proposal.Resolve(ppd.get(), keyword, choice)) return {};
  return proposal.Content();
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

std::string PPDFile::ChoiceOf(const std::string &option, const JobOptions &options) const {
  const Marks marks(ppd_.get(), options);
  const ppd_choice_t *choice = MarkedChoice(ppd_.get(), option.c_str());
  return choice == nullptr ? "" : choice->choice;
}

std::vector<PPDConflict> PPDFile::Conflicts(const JobOptions &options) const {
  const Marks marks(ppd_.get(), options);
  const auto described = [&](const ppd_choice_t *choice) {
    std::optional<PPDOption> option = Option(KeywordForPeople(choice->option->keyword));
    if (!option) option = Option(choice->option->keyword);
    PPDOption result = option.value_or(PPDOption{});
    std::string keyword = choice->choice;
    const auto asked_for = options.find(result.keyword);
    if (keyword == kCustomChoice && asked_for != options.end()) keyword = asked_for->second;
    const auto listed = std::ranges::find(result.choices, keyword, &PPDChoice::keyword);
    result.choices = {listed == result.choices.end() ? PPDChoice{keyword, keyword} : *listed};
    return result;
  };

  std::vector<PPDConflict> conflicts;
  std::set<std::pair<const ppd_choice_t *, const ppd_choice_t *>> seen;
  for (const Constraint &constraint : ConstraintsOf(ppd_.get(), Attributes("cupsUIConstraints"))) {
    const std::vector<const ppd_choice_t *> choices = ChoicesInConflict(ppd_.get(), constraint);
    for (size_t at = 0; at < choices.size(); ++at) {
      if (at == 0 && choices.size() > 1) continue;
      const auto pair = std::minmax(choices.front(), choices[at]);
      if (seen.insert(pair).second) {
        conflicts.push_back({described(choices.front()), described(choices[at])});
      }
    }
  }
  return conflicts;
}

std::optional<JobOptions> PPDFile::Resolution(const JobOptions &options,
                                              const std::string &keep) const {
  ppd_file_t *ppd = ppd_.get();
  const JobOptions marked = MarkedChoices(ppd, options);
  const JobOptions kept = KeptChoices(ppd, options, keep);
  const std::vector<PPDOption> options_of_jobs = Options();
  for (const auto &propose : {ProposalOfLibcups, ProposalOfDefaults}) {
    JobOptions changes = Usable(propose(*this, options, kept), options_of_jobs, marked);
    changes.erase(KeywordForPeople(keep.c_str()));
    const JobOptions changed = Changed(options, changes);
    if (Conflicts(changed).empty() && Keeps(MarkedChoices(ppd, changed), kept)) return changes;
  }
  return std::nullopt;
}
