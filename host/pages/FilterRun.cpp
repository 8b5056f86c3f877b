#include "host/pages/FilterRun.h"

#include <cups/cups.h>

#include <cstring>
#include <fstream>
#include <string_view>

#include "host/base/Localized.h"
#include "host/base/OneLine.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"
#include "host/chain/ServerFolders.h"
#include "host/cups/JobTransfer.h"
#include "host/pages/ChildProgram.h"
#include "host/pages/LayoutOptions.h"
#include "host/pages/Programs.h"

namespace fs = std::filesystem;

namespace {

// As a print server has it, for messages and numbers in one language.
std::map<std::string, std::string> EnvironmentOf(const FilterStep &step) {
  const std::string tables = FindServerFolders().data.string();
  return {{"CHARSET", "utf-8"},
          {"CONTENT_TYPE", step.from},
          {"CUPS_DATADIR", tables},
          {"CUPS_FONTPATH", tables + "/fonts"},
          {"CUPS_SERVERBIN", step.program.parent_path().parent_path().string()},
          {"FINAL_CONTENT_TYPE", step.to},
          {"LANG", "C.UTF-8"},
          {"LC_ALL", "C.UTF-8"},
          {"PPD", step.ppd.string()},
          {"PRINTER", "pdeprint"},
          {"TMPDIR", step.out.parent_path().string()}};
}

// "WARNING: TEXT": TEXT; empty: no such line.
std::string_view After(std::string_view kind, std::string_view line) {
  return line.starts_with(kind) ? Trimmed(line.substr(kind.size())) : std::string_view();
}

FilterWords WordsIn(const fs::path &log) {
  constexpr size_t kMost = 20;
  FilterWords words;
  std::ifstream file(log);
  for (std::string line; words.warnings.size() < kMost && std::getline(file, line);) {
    for (const char *kind : {"WARNING:", "ERROR:", "CRIT:", "ALERT:", "EMERG:"}) {
      const std::string_view text = After(kind, line);
      if (!text.empty()) words.warnings.push_back(OnOneLine(ToUtf8(text)));
    }
  }
  return words;
}

Expected<void> CheckEnd(const std::string &name, const ChildEnd &end, const FilterWords &words) {
  switch (end.kind) {
    case ChildEnd::Kind::kCanceled:
      return JobCanceled();
    case ChildEnd::Kind::kTookTooLong:
      return Failure{Localized("the program %1 takes too long", {name})};
    case ChildEnd::Kind::kKilled:
      return Failure{Localized("the program %1 has failed: %2", {name, strsignal(end.number)})};
    case ChildEnd::Kind::kExited:
      break;
  }
  if (end.number == 0) return {};
  return Failure{Localized(
      "the program %1 has failed: %2",
      {name, words.warnings.empty() ? std::to_string(end.number) : words.warnings.back()})};
}

}  // namespace

Expected<FilterWords> RunFilter(const FilterStep &step, const std::atomic<bool> &cancel) {
  const auto copies = step.options.find("copies");
  fs::path log = step.out;
  log += ".log";
  Expected<ChildEnd> end = Run({.path = step.program,
                                .arguments = {"1", cupsUser(), step.title,
                                              copies == step.options.end() ? "1" : copies->second,
                                              OptionText(step.options), step.in.string()},
                                .environment = EnvironmentOf(step),
                                .out = step.out,
                                .log = log},
                               cancel);
  if (!end) return end.failure();
  FilterWords words = WordsIn(log);
  const std::string name = step.program.filename().string();
  if (auto done = CheckEnd(name, *end, words); !done) return done.failure();
  return words;
}
