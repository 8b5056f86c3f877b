// The built program, without a display and without a print server.

#ifndef TESTS_HOST_COMMAND_BUILTPROGRAM_H
#define TESTS_HOST_COMMAND_BUILTPROGRAM_H

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/Arguments.h"
#include "tests/support/RunProgram.h"

using Json = nlohmann::ordered_json;

inline constexpr char kColorPPD[] = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";
inline constexpr char kMonoPPD[] = SOURCE_DIRECTORY "/tests/support/SampleMono.ppd";

inline constexpr char kDefaultOptions[] =
    "Job options:\n"
    "  VQBNColor=Black\n"
    "  VQBNDensity=Medium\n"
    "  VQBNSize=Medium\n"
    "  VQBackgroundNumbering=Off\n"
    "  VQStartNumber=1\n";

inline Json Parsed(const std::string &text) {
  Json json = Json::parse(text, nullptr, false);
  EXPECT_FALSE(json.is_discarded()) << text;
  return json;
}

inline std::string Ticket(const std::string &entries) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + entries +
         "</dict></plist>\n";
}

inline std::string Entry(const std::string &key, const std::string &value) {
  return "<key>" + key + "</key><string>" + value + "</string>";
}

inline RunResult Settings(const std::string &ppd, Arguments more = {},
                          const RunOptions &options = {}) {
  more.insert(more.begin(), {"settings", "--ppd", ppd});
  return RunPdeprint(more, options);
}

inline std::vector<std::string> NamesIn(const std::filesystem::path &folder) {
  std::vector<std::string> names;
  for (const std::filesystem::directory_entry &entry :
       std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

#endif
