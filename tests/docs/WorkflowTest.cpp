// The hosted checks, as far as they can be told without the host.

#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/docs/BuildCommands.h"
#include "tests/support/TemporaryFolder.h"

namespace {

std::string Workflow() { return ContentOf(SOURCE_DIRECTORY "/.github/workflows/ci.yml"); }

// The first group of every match.
std::vector<std::string> Found(const std::string &text, const std::string &pattern) {
  const std::regex regex(pattern);
  std::vector<std::string> groups;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
    groups.push_back((*match)[1]);
  }
  return groups;
}

}  // namespace

// A tag can be moved to other code, a commit cannot.
TEST(Workflow, ActionsArePinnedToCommits) {
  const std::vector<std::string> actions = Found(Workflow(), "uses: (.*)");
  EXPECT_LE(2u, actions.size());
  for (const std::string &action : actions) {
    EXPECT_TRUE(std::regex_match(action, std::regex("[a-z/-]+@[0-9a-f]{40} # v[0-9.]+"))) << action;
  }
}

TEST(Workflow, CallsTargetsThatTheMakefileHas) {
  std::vector<std::string> targets = Found(Workflow(), "run: make ([a-z-]+)");
  const std::vector<std::string> lists = Found(Workflow(), "target: \\[(.*)\\]");
  ASSERT_EQ(1u, lists.size());
  for (const std::string &target : Found(lists[0], "([a-z-]+)")) targets.push_back(target);
  EXPECT_LE(5u, targets.size());
  for (const std::string &target : targets) EXPECT_EQ("", WhyNotBuilt({"make", target}));
}
