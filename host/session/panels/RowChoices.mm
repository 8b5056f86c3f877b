#include "host/session/panels/RowChoices.h"

#include <strings.h>

#include <algorithm>

bool LaysOutPages(const JobSession &session) {
  return session.ppd() != nullptr || session.offered().contains("number-up");
}

RowChoices OfferedChoices(const JobSession &session, const std::string &option, RowChoices words) {
  const auto offered = session.offered().find(option);
  if (offered == session.offered().end() || offered->second.empty()) return words;
  RowChoices choices;
  for (const std::string &value : offered->second) {
    const auto known = std::ranges::find(words, value, &PPDChoice::keyword);
    choices.push_back(known == words.end() ? PPDChoice{value, value} : *known);
  }
  return choices;
}

std::optional<PanelRow> RowOfFirst(const JobSession &session,
                                   std::initializer_list<const char *> keywords) {
  if (session.ppd() == nullptr) return std::nullopt;
  for (const char *keyword : keywords) {
    const std::optional<PPDOption> option = session.ppd()->Option(keyword);
    if (!option || option->choices.empty()) continue;
    PanelRow row = RowOfPrinterOption(*option);
    row.group.clear();
    return row;
  }
  return std::nullopt;
}

bool IsOn(const JobOptions &job, const std::string &option) {
  const auto found = job.find(option);
  if (found == job.end()) return false;
  return std::ranges::none_of(
      std::initializer_list<const char *>{"no", "off", "false"},
      [&found](const char *off) { return strcasecmp(found->second.c_str(), off) == 0; });
}
