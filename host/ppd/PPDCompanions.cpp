#include <sstream>

#include "host/ppd/PPDFile.h"

namespace {

// "OPTION CHOICE REST", as bundles' attributes say what belongs to a choice.
struct ChoiceStatement {
  std::string option, choice, rest;

  explicit ChoiceStatement(const std::string &value) {
    std::istringstream words(value);
    words >> option >> choice >> rest;
  }
};

}  // namespace

std::optional<std::string> PPDFile::SubstituteFor(const std::string &option,
                                                  const std::string &choice) const {
  if (Allows(option, choice)) return std::nullopt;
  for (const std::string &value : Attributes("PDESubstituteChoice")) {
    const ChoiceStatement statement(value);
    if (statement.option != option || statement.choice != choice) continue;
    if (Allows(option, statement.rest)) return statement.rest;
  }
  return std::nullopt;
}

JobOptions PPDFile::GoingWith(const JobOptions &options) const {
  JobOptions companions;
  for (const std::string &value : Attributes("PDEJobOption")) {
    const ChoiceStatement statement(value);
    const size_t equals = statement.rest.find('=');
    if (equals == 0 || equals == std::string::npos) continue;
    if (ChoiceOf(statement.option, options) != statement.choice) continue;
    companions.emplace(statement.rest.substr(0, equals), statement.rest.substr(equals + 1));
  }
  return companions;
}
