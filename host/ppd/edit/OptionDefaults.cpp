#include "host/ppd/edit/OptionDefaults.h"

#include <map>
#include <set>
#include <utility>

#include "host/ppd/edit/PPDText.h"

namespace {

constexpr std::string_view kDefault = "Default";

// Of the options that the lines open.
std::map<std::string_view, std::string_view> DefaultsIn(std::string_view lines) {
  std::map<std::string_view, std::string_view> defaults;
  for (const PPDStatement &statement : StatementsOf(lines)) {
    if (statement.keyword.starts_with(kDefault)) {
      defaults.emplace(statement.keyword.substr(kDefault.size()), statement.value);
    }
  }
  return defaults;
}

}  // namespace

std::string WithDefaultsOf(std::string_view earlier, std::string_view beginning,
                           std::string_view lines) {
  const auto of_beginning = DefaultsIn(beginning);
  auto defaults = DefaultsIn(earlier);
  std::erase_if(defaults, [&of_beginning](const auto &option) {
    const auto found = of_beginning.find(option.first);
    return found != of_beginning.end() && found->second == option.second;
  });
  const std::vector<PPDStatement> statements = StatementsOf(lines);
  std::set<std::pair<std::string_view, std::string_view>> choices;
  for (const PPDStatement &statement : statements) {
    choices.emplace(statement.keyword, statement.option);
  }
  std::string result;
  for (const PPDStatement &statement : statements) {
    const bool is_default = statement.keyword.starts_with(kDefault);
    const auto found =
        is_default ? defaults.find(statement.keyword.substr(kDefault.size())) : defaults.end();
    if (found == defaults.end() || !choices.contains({found->first, found->second})) {
      result += statement.all;
      continue;
    }
    const size_t at = static_cast<size_t>(statement.value.data() - statement.all.data());
    result += statement.all.substr(0, at);
    result += found->second;
    result += statement.all.substr(at + statement.value.size());
  }
  return result;
}
