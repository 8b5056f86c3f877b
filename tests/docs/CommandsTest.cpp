// The commands in the documents, in their order.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

#include "tests/docs/BuildCommands.h"
#include "tests/docs/Markdown.h"
#include "tests/docs/Workplace.h"

namespace fs = std::filesystem;

namespace {

const std::set<std::string> kPrograms = {"cmake",    "cp",       "cupstestppd", "gs",     "groff",
                                         "lp",       "lpadmin",  "lpoptions",   "lpstat", "mkdir",
                                         "pdeprint", "pdftopdf", "pdftops",     "sed"};

// Up to the comment, without the variables that are set for it. Nothing is quoted here.
std::vector<std::string> WordsOf(const std::string &command) {
  std::vector<std::string> words;
  std::istringstream text(command);
  const std::regex variable(R"([A-Z_]+=\S*)");
  for (std::string word; text >> word && !word.starts_with('#');) {
    if (words.empty() && std::regex_match(word, variable)) continue;
    words.push_back(word);
  }
  return words;
}

class Commands : public testing::TestWithParam<fs::path> {
 protected:
  void Try(const Command &command) {
    const std::vector<std::string> words = WordsOf(command.text);
    if (words.empty()) return;  // a comment alone
    if (IsBuildCommand(words)) {
      EXPECT_EQ("", WhyNotBuilt(words));
      EXPECT_FALSE(command.output) << "it is not run";
      return;
    }
    const bool is_known = kPrograms.contains(fs::path(words.front()).filename());
    EXPECT_TRUE(is_known) << words.front() << " is no program that documents may run";
    if (!is_known) return;
    const bool opens_dialog = std::ranges::count(words, "show") != 0;
    const RunResult result =
        opens_dialog ? place_.RunDialog(command.text) : place_.Run(command.text);
    EXPECT_FALSE(result.timed_out);
    EXPECT_EQ(command.status, result.status) << result.out << result.err;
    if (command.output) EXPECT_EQ(*command.output, result.out + result.err);
  }

  Workplace place_;
};

std::string NameOf(const testing::TestParamInfo<fs::path> &info) {
  std::string name = info.param.stem();
  std::erase_if(name, [](unsigned char character) { return std::isalnum(character) == 0; });
  return name;
}

}  // namespace

TEST_P(Commands, DoWhatTheDocumentSays) {
  for (const Command &command : CommandsIn(ContentOf(GetParam()))) {
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(command.line) + ": " +
                 command.text);
    Try(command);
  }
  EXPECT_TRUE(place_.AwaitJobs()) << "a job has not ended";
}

INSTANTIATE_TEST_SUITE_P(In, Commands, testing::ValuesIn(MarkdownFiles()), NameOf);
