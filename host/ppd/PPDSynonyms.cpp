#include "host/ppd/CupsOptions.h"
#include "host/ppd/Marks.h"
#include "host/ppd/PPDFile.h"

// libcups knows which names stand for which options: what it marks tells.
std::set<std::string> PPDFile::ChangedBy(const JobOptions &others,
                                         const JobOptions &options) const {
  const auto choice_of = [this](const std::string &keyword) -> std::string {
    const ppd_choice_t *choice = MarkedChoice(ppd_.get(), keyword.c_str());
    return choice == nullptr ? "" : choice->choice;
  };
  JobOptions of_file = options;
  std::erase_if(of_file, [this](const auto &option) { return !HasOption(option.first); });
  JobOptions of_others = others;
  std::erase_if(of_others, [this](const auto &option) { return HasOption(option.first); });
  if (of_file.empty() || of_others.empty()) return {};

  const Marks marks(ppd_.get(), of_file);
  JobOptions before;
  for (const auto &[keyword, value] : of_file) before[keyword] = choice_of(keyword);
  const CupsOptions over(of_others);
  cupsMarkOptions(ppd_.get(), over.count(), over.get());
  std::set<std::string> changed;
  for (const auto &[keyword, choice] : before) {
    if (choice_of(keyword) != choice) changed.insert(keyword);
  }
  return changed;
}
