#include "host/ppd/CupsOptions.h"
#include "host/ppd/PPDFile.h"

// libcups knows which names stand for which options: what it marks tells.
std::set<std::string> PPDFile::ChangedBy(const JobOptions &others, const JobOptions &options) const {
  const auto mark = [this](const JobOptions &marked) {
    const CupsOptions list(marked);
    cupsMarkOptions(ppd_.get(), list.count(), list.get());
  };
  const auto choice_of = [this](const std::string &keyword) -> std::string {
    const ppd_choice_t *choice = ppdFindMarkedChoice(ppd_.get(), keyword.c_str());
    return choice == nullptr ? "" : choice->choice;
  };
  JobOptions of_file = options;
  std::erase_if(of_file, [this](const auto &option) { return !HasOption(option.first); });
  JobOptions of_others = others;
  std::erase_if(of_others, [this](const auto &option) { return HasOption(option.first); });
  if (of_file.empty() || of_others.empty()) return {};

  mark(of_file);
  JobOptions before;
  for (const auto &[keyword, value] : of_file) before[keyword] = choice_of(keyword);
  mark(of_others);
  std::set<std::string> changed;
  for (const auto &[keyword, choice] : before) {
    if (choice_of(keyword) != choice) changed.insert(keyword);
  }
  ppdMarkDefaults(ppd_.get());
  return changed;
}
