#include "host/ppd/Constraints.h"

#include <strings.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "host/ppd/CustomChoice.h"
#include "host/ppd/Keywords.h"
#include "host/ppd/Marks.h"

namespace {

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
ForbiddenChoices ChoicesInConflict(ppd_file_t *ppd, const Constraint &constraint) {
  ForbiddenChoices choices;
  for (const Term &term : constraint) {
    const ppd_choice_t *choice = ChoiceInConflict(ppd, term);
    if (choice == nullptr) return {};
    choices.push_back(choice);
  }
  return choices;
}

}  // namespace

std::vector<ForbiddenChoices> BrokenConstraints(ppd_file_t *ppd,
                                                const std::vector<std::string> &texts) {
  std::vector<ForbiddenChoices> broken;
  for (const Constraint &constraint : ConstraintsOf(ppd, texts)) {
    ForbiddenChoices choices = ChoicesInConflict(ppd, constraint);
    if (!choices.empty()) broken.push_back(std::move(choices));
  }
  return broken;
}
