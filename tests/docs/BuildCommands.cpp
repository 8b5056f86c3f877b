#include "tests/docs/BuildCommands.h"

#include <unistd.h>

#include <filesystem>
#include <regex>

#include "tests/support/RunProgram.h"

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

const fs::path kSource = SOURCE_DIRECTORY;

bool HasLine(const std::string &text, const std::string &expression) {
  return std::regex_search(text, std::regex("(^|\n)" + expression + "(\n|$)"));
}

std::string WhyNoPreset(const std::string &name, const std::string &kind = "configure") {
  const std::string list = RunProgram({CMAKE_PROGRAM, "--list-presets=" + kind},
                                      {.environment = {}, .folder = kSource, .out = {}})
                               .out;
  return HasLine(list, " *\"" + name + "\".*") ? "" : "there is no preset " + name;
}

std::string WhyNoTarget(const std::string &name) {
  const RunResult result = RunProgram({NINJA_PROGRAM, "-C", BINARY_DIRECTORY, "-t", "query", name});
  return result.status == 0 ? "" : "there is no target " + name + ": " + result.err;
}

std::string WhyNoBuildFolder(const std::string &folder) {
  if (!folder.starts_with("build/")) return "builds are in build/PRESET";
  return WhyNoPreset(folder.substr(6));
}

std::string WhyNoMakeTarget(const Words &words) {
  Words command = {"make", "-n", "-C", kSource};
  command.insert(command.end(), words.begin() + 1, words.end());
  return RunProgram(command).status == 0 ? "" : "make does not know it";
}

// --preset NAME, --build FOLDER, --target NAME..., -jN.
std::string WhyNotByCMake(const Words &words) {
  const bool is_workflow = words.at(1) == "--workflow";
  for (size_t at = 1; at < words.size(); ++at) {
    const std::string &option = words[at];
    if (option == "--workflow" || option.starts_with("-j")) continue;
    if (option == "--build" && words.at(at + 1).starts_with("-")) continue;
    if (at + 1 == words.size()) return option + " has no value";
    const std::string &value = words[++at];
    std::string reason = option + " is unknown here";
    if (option == "--preset") reason = WhyNoPreset(value, is_workflow ? "workflow" : "configure");
    if (option == "--build") reason = WhyNoBuildFolder(value);
    if (option == "--target") {
      reason = WhyNoTarget(value);
      for (; reason.empty() && at + 1 < words.size() && words[at + 1][0] != '-'; ++at) {
        reason = WhyNoTarget(words[at + 1]);
      }
    }
    if (!reason.empty()) return reason;
  }
  return "";
}

// ctest --preset NAME [-R TESTS]
std::string WhyNotByCTest(const Words &words) {
  if (words.size() < 3 || words[1] != "--preset") return "a preset is wanted";
  if (std::string reason = WhyNoPreset(words[2], "test"); !reason.empty()) return reason;
  Words command = {CMAKE_CTEST_PROGRAM, "--test-dir", BINARY_DIRECTORY, "-N"};
  command.insert(command.end(), words.begin() + 3, words.end());
  const RunResult result = RunProgram(command);
  return result.status == 0 && !HasLine(result.out, "Total Tests: 0")
             ? ""
             : "it finds no test: " + result.out + result.err;
}

// build/PRESET/tests/FOLDER/PROGRAM --gtest_filter='SUITE.*'
std::string WhyNoTest(const std::string &program, const std::string &filter) {
  const fs::path path = program;
  if (std::string reason = WhyNoTarget(path.filename()); !reason.empty()) return reason;
  const auto at = program.find("/tests/");
  const fs::path sources = kSource / path.parent_path().string().substr(at + 1);
  std::smatch match;
  if (!std::regex_match(filter, match, std::regex(R"(--gtest_filter='?(\w+)\.\*'?)"))) {
    return "a filter of one suite is wanted";
  }
  for (const auto &entry : fs::recursive_directory_iterator(sources)) {
    if (!entry.is_regular_file()) continue;
    if (ContentOf(entry.path()).find("TEST(" + match[1].str() + ",") != std::string::npos)
      return "";
  }
  return "there are no tests of " + match[1].str() + " in " + sources.string();
}

std::string WhyNoFuzzTargets(const Words &names) {
  for (const std::string &name : names) {
    if (!fs::is_directory(kSource / "tests/fuzz/corpora" / name))
      return "there is no target " + name;
  }
  return "";
}

std::string WhyNoScript(const Words &words) {
  const std::string &script = words.front();
  if (access((kSource / script).c_str(), X_OK) != 0) return "there is no such script";
  if (script == "scripts/with-display" && words.size() == 3) return WhyNoTest(words[1], words[2]);
  if (words.size() == 1) return "";
  const bool takes_preset = script == "scripts/build" || script == "scripts/test";
  if (takes_preset && words.size() == 2) return WhyNoPreset(words[1]);
  if (script == "scripts/format" && words.size() == 2 && words[1] == "--check") return "";
  if (script == "scripts/fuzz") return WhyNoFuzzTargets({words.begin() + 2, words.end()});
  return "the script's arguments are unknown here";
}

}  // namespace

bool IsBuildCommand(const Words &words) {
  const std::string &program = words.front();
  if (program == "cmake") return words.size() < 2 || words[1] != "--install";
  return program == "make" || program == "ctest" || program.starts_with("scripts/");
}

std::string WhyNotBuilt(const Words &words) {
  const std::string &program = words.front();
  if (program.starts_with("scripts/")) return WhyNoScript(words);
  if (words.size() < 2) return "it does nothing";
  if (program == "make") return WhyNoMakeTarget(words);
  return program == "cmake" ? WhyNotByCMake(words) : WhyNotByCTest(words);
}
