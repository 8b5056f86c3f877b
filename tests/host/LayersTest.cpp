// The layers of the host: what each may include.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/RunProgram.h"

namespace fs = std::filesystem;

namespace {

// Each may use those before it, as far as it says so.
const std::vector<std::string> kLayers = {
    "base",      "ppd",   "ppd/edit", "chain",   "cups",           "job",    "presets",
    "extension", "pages", "preview",  "session", "session/panels", "dialog", "command"};

fs::path Folder(const std::string &layer) { return fs::path(SOURCE_DIRECTORY) / "host" / layer; }

bool IsSourceOf(const std::string &file, const std::string &layer) {
  return fs::path(file).parent_path() == Folder(layer) && !file.ends_with("/main.cpp");
}

// The compiler with the folders in which the layer's sources find headers.
std::vector<std::string> CompilerFor(const std::string &layer) {
  const auto commands =
      nlohmann::json::parse(std::ifstream(BINARY_DIRECTORY "/compile_commands.json"));
  for (const auto &entry : commands) {
    if (!IsSourceOf(entry["file"], layer)) continue;
    std::istringstream words(entry["command"].get<std::string>());
    std::vector<std::string> compiler;
    for (std::string word; words >> word;) {
      if (compiler.empty() && word.find("clang") == std::string::npos) continue;
      if (compiler.empty() || word.starts_with("-I")) compiler.push_back(word);
    }
    return compiler;
  }
  return {};
}

bool MayInclude(const std::string &layer, const fs::path &header) {
  static const TemporaryFolder folder;
  const fs::path source = folder.Write("include.cpp", "#if !__has_include(\"" + header.string() +
                                                          "\")\n#error no such file\n#endif\n");
  std::vector<std::string> command = CompilerFor(layer);
  for (const char *word : {"-E", "-o", "/dev/null"}) command.push_back(word);
  command.push_back(source);
  return RunProgram(command).status == 0;
}

fs::path HeaderOf(const std::string &layer) {
  for (const fs::directory_entry &entry : fs::directory_iterator(Folder(layer))) {
    if (entry.path().extension() == ".h") return entry.path().lexically_relative(SOURCE_DIRECTORY);
  }
  return {};
}

}  // namespace

TEST(Layers, SeeTheirOwnHeadersAndThoseOfTheLowest) {
  for (const std::string &layer : kLayers) {
    EXPECT_TRUE(MayInclude(layer, HeaderOf(layer))) << layer;
    EXPECT_TRUE(MayInclude(layer, HeaderOf("base"))) << layer;
  }
}

TEST(Layers, SeeNothingOfThoseAboveThem) {
  for (size_t layer = 0; layer < kLayers.size(); ++layer) {
    for (size_t above = layer + 1; above < kLayers.size(); ++above) {
      EXPECT_FALSE(MayInclude(kLayers[layer], HeaderOf(kLayers[above])))
          << kLayers[layer] << " sees " << kLayers[above];
    }
  }
}

TEST(Layers, SeeNothingThatTheyHaveNoUseFor) {
  for (const auto &[layer, other] : {std::pair("cups", "ppd/edit"),
                                     {"extension", "cups"},
                                     {"extension", "job"},
                                     {"session", "presets"},
                                     {"session", "preview"}}) {
    EXPECT_FALSE(MayInclude(layer, HeaderOf(other))) << layer << " sees " << other;
  }
}

TEST(Layers, AreAllFoldersOfTheHost) {
  std::vector<std::string> folders;
  for (const auto &entry : fs::recursive_directory_iterator(fs::path(SOURCE_DIRECTORY) / "host")) {
    if (entry.path().extension() != ".cpp" || entry.path().filename() == "main.cpp") continue;
    folders.push_back(entry.path().parent_path().lexically_relative(Folder("")));
  }
  for (const std::string &folder : folders) {
    EXPECT_NE(kLayers.end(), std::ranges::find(kLayers, folder)) << folder;
  }
}
