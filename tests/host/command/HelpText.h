// What `pdeprint --help` and `pdeprint VERB --help` list.

#ifndef TESTS_HOST_COMMAND_HELPTEXT_H
#define TESTS_HOST_COMMAND_HELPTEXT_H

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/RunProgram.h"

// All matches of an expression, of its first group if it has one.
inline std::set<std::string> Matches(const std::string &text, const std::string &expression) {
  const std::regex regex(expression);
  const int group = regex.mark_count() > 0 ? 1 : 0;
  const std::sregex_token_iterator first(text.begin(), text.end(), regex, group);
  return {first, std::sregex_token_iterator()};
}

// The help without a verb, or on one.
inline std::string HelpText(const std::string &verb = "") {
  const RunResult result = RunPdeprint(verb.empty() ? std::vector<std::string>{"--help"}
                                                    : std::vector<std::string>{verb, "--help"});
  EXPECT_EQ(0, result.status) << result.err;
  return result.out;
}

// The lines below a heading.
inline std::string HelpOn(const std::string &heading, const std::string &help) {
  std::istringstream lines(help.substr(std::min(help.find(heading + ":\n"), help.size())));
  std::string text;
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line) && !line.empty()) text += line + '\n';
  return text;
}

inline std::set<std::string> Verbs() {
  const std::set<std::string> verbs =
      Matches(HelpOn("Subcommands", HelpText()), "(?:^|\n)  ([a-z]+)");
  EXPECT_FALSE(verbs.empty());
  return verbs;
}

// The options' lines: names, and what stands for the value.
inline std::string OptionsHelp(const std::string &verb = "") {
  return std::regex_replace(HelpOn("Options", HelpText(verb)), std::regex(" Excludes:.*"), "");
}

#endif
