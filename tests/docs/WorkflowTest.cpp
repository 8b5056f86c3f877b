// The hosted checks, as far as they can be told without the host.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/docs/BuildCommands.h"
#include "tests/support/TemporaryFolder.h"

namespace {

const std::string kFolder = SOURCE_DIRECTORY "/.github";

// What every workflow says, by the file's name.
std::map<std::string, std::string> Workflows() {
  std::map<std::string, std::string> workflows;
  for (const auto &entry : std::filesystem::directory_iterator(kFolder + "/workflows")) {
    workflows[entry.path().filename()] = ContentOf(entry.path());
  }
  return workflows;
}

// The first group of every match; ^ and $ are the ends of lines.
std::vector<std::string> Found(const std::string &text, const std::string &pattern) {
  const std::regex regex(pattern, std::regex::ECMAScript | std::regex::multiline);
  std::vector<std::string> groups;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
    groups.push_back((*match)[1]);
  }
  return groups;
}

}  // namespace

TEST(Workflow, ThereIsOneForChangesOneForTimeAndOneForCodeScanning) {
  std::set<std::string> names;
  for (const auto &[name, text] : Workflows()) names.insert(name);
  EXPECT_EQ((std::set<std::string>{"ci.yml", "codeql.yml", "weekly.yml"}), names);
}

// A tag can be moved to other code, a commit cannot.
TEST(Workflow, ActionsArePinnedToCommits) {
  for (const auto &[name, text] : Workflows()) {
    const std::vector<std::string> actions = Found(text, "uses: (.*)");
    EXPECT_LE(1u, actions.size()) << name;
    for (const std::string &action : actions) {
      EXPECT_TRUE(std::regex_match(action, std::regex("[a-z/-]+@[0-9a-f]{40} # v[0-9.]+")))
          << name << ": " << action;
    }
  }
}

TEST(Workflow, AnActionHasTheSameCommitEverywhere) {
  std::map<std::string, std::set<std::string>> commits;
  for (const auto &[name, text] : Workflows()) {
    for (const std::string &action : Found(text, "uses: (.*)")) {
      // Those of one repository are released together.
      const std::string repository = Found(action, "^([a-z-]+/[a-z-]+)").at(0);
      commits[repository].insert(action.substr(action.find('@')));
    }
  }
  EXPECT_LE(4u, commits.size());
  for (const auto &[repository, all] : commits) EXPECT_EQ(1u, all.size()) << repository;
}

TEST(Workflow, CallsTargetsThatTheMakefileHas) {
  for (const auto &[name, text] : Workflows()) {
    std::vector<std::string> targets = Found(text, "run: make ([a-z-]+)");
    for (const std::string &list : Found(text, "target: \\[(.*)\\]")) {
      for (const std::string &target : Found(list, "([a-z-]+)")) targets.push_back(target);
    }
    EXPECT_LE(1u, targets.size()) << name;
    for (const std::string &target : targets) {
      EXPECT_EQ("", WhyNotBuilt({"make", target})) << name << ": " << target;
    }
  }
}

TEST(Workflow, RunsOnEveryReleaseOfDebianThatThereAreTestsFor) {
  for (const std::string name : {"ci.yml", "weekly.yml"}) {
    EXPECT_EQ(std::vector<std::string>{"12, 13"}, Found(Workflows()[name], "release: \\[(.*)\\]"))
        << name;
  }
}

// Without these lines a workflow may do what the repository's settings allow.
TEST(Workflow, MayOnlyReadAndOneReportFindings) {
  for (const auto &[name, text] : Workflows()) {
    EXPECT_EQ(1u, Found(text, "^permissions:\n(  contents: read)\n\n").size()) << name;
    const std::vector<std::string> written = Found(text, "([a-z-]+): write");
    EXPECT_EQ(name == "codeql.yml" ? std::vector<std::string>{"security-events"}
                                   : std::vector<std::string>{},
              written)
        << name;
  }
}

TEST(Workflow, NewVersionsOfActionsAreProposed) {
  const std::string text = ContentOf(kFolder + "/dependabot.yml");
  EXPECT_EQ(std::vector<std::string>{"github-actions"}, Found(text, "package-ecosystem: (.*)"));
}
