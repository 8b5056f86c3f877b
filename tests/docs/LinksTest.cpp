// Where the documents send their readers.

#include <glob.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/docs/Markdown.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

const fs::path kSource = SOURCE_DIRECTORY;

struct Target {
  fs::path file;
  std::string anchor;
};

Target TargetOf(const fs::path &document, const std::string &link) {
  const size_t sharp = std::min(link.find('#'), link.size());
  const std::string file = link.substr(0, sharp);
  return {file.empty() ? document : (document.parent_path() / file).lexically_normal(),
          sharp == link.size() ? "" : link.substr(sharp + 1)};
}

std::set<fs::path> AllTargets() {
  std::set<fs::path> targets;
  for (const fs::path &document : MarkdownFiles()) {
    for (const Quote &link : LinksIn(ContentOf(document))) {
      const fs::path file = TargetOf(document, link.text).file;
      if (file != document) targets.insert(file);
    }
  }
  return targets;
}

bool MatchesAFile(const std::string &pattern) {
  glob_t found;
  const int status = glob(pattern.c_str(), GLOB_BRACE, nullptr, &found);
  if (status == 0) globfree(&found);
  return status == 0;
}

// Names of files of the source tree begin with one of its folders.
bool BeginsInSourceTree(const std::string &words) {
  const size_t slash = words.find('/');
  if (slash == std::string::npos || slash == 0 || words.find(' ') != std::string::npos) {
    return false;
  }
  const std::string folder = words.substr(0, slash);
  return folder != "build" && folder != "." && folder != ".." && fs::is_directory(kSource / folder);
}

}  // namespace

TEST(Links, LeadToFilesAndHeadingsThatAreThere) {
  for (const fs::path &document : MarkdownFiles()) {
    for (const Quote &link : LinksIn(ContentOf(document))) {
      const Target target = TargetOf(document, link.text);
      EXPECT_TRUE(fs::exists(target.file))
          << document << ':' << link.line << ": " << link.text << " is not there";
      if (target.anchor.empty()) continue;
      EXPECT_TRUE(std::ranges::count(AnchorsIn(ContentOf(target.file)), target.anchor) == 1)
          << document << ':' << link.line << ": no heading of " << target.file << " is "
          << target.anchor;
    }
  }
}

TEST(Links, LeadToEveryDocumentAndPicture) {
  const std::set<fs::path> targets = AllTargets();
  std::vector<fs::path> wanted = MarkdownFiles();
  std::erase(wanted, kSource / "README.md");
  for (const auto &entry : fs::directory_iterator(kSource / "docs/images")) {
    wanted.push_back(entry.path());
  }
  for (const fs::path &file : wanted) {
    EXPECT_TRUE(targets.contains(file)) << "nothing leads to " << file;
  }
}

TEST(Links, FilesOfTheSourceTreeAreCalledByTheirNames) {
  for (const fs::path &document : MarkdownFiles()) {
    for (const Quote &words : CodeWordsIn(ContentOf(document))) {
      if (!BeginsInSourceTree(words.text)) continue;
      EXPECT_TRUE(MatchesAFile(kSource / words.text))
          << document << ':' << words.line << ": there is no " << words.text;
    }
  }
}
