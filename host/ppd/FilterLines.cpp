#include "host/ppd/FilterLines.h"

#include <algorithm>
#include <charconv>

#include "host/base/Text.h"

namespace {

constexpr std::string_view kLimit = "maxsize(";

// The next word, which is taken off the text.
std::string_view TakeWord(std::string_view &text) {
  text = Trimmed(text);
  const std::string_view word = text.substr(0, text.find_first_of(" \t"));
  text = Trimmed(text.substr(word.size()));
  return word;
}

bool IsType(std::string_view word) {
  const size_t slash = word.find('/');
  return slash != std::string_view::npos && slash > 0 && slash + 1 < word.size();
}

template <typename Number>
bool ReadNumber(std::string_view word, Number &number) {
  if (word.starts_with('+')) word.remove_prefix(1);
  return std::from_chars(word.data(), word.data() + word.size(), number).ec == std::errc();
}

std::vector<FilterLine> LinesIn(const std::vector<std::string> &values) {
  std::vector<FilterLine> lines;
  for (const std::string &value : values) {
    if (std::optional<FilterLine> line = FilterLineIn(value)) lines.push_back(std::move(*line));
  }
  return lines;
}

}  // namespace

std::optional<FilterLine> FilterLineIn(std::string_view value) {
  FilterLine line;
  line.source = TakeWord(value);
  if (!IsType(line.source)) return std::nullopt;
  std::string_view word = TakeWord(value);
  if (IsType(word)) {
    line.destination = word;
    word = TakeWord(value);
  }
  if (!ReadNumber(word, line.cost)) return std::nullopt;
  if (value.starts_with(kLimit)) {
    long long most = 0;
    if (!ReadNumber(value.substr(kLimit.size()), most)) return std::nullopt;
    const size_t end = value.find(')');
    if (end == std::string_view::npos) return std::nullopt;
    line.most = most;
    value = Trimmed(value.substr(end + 1));
  }
  line.program = value;
  if (line.program.empty()) return std::nullopt;
  return line;
}

std::string FilterKeyword(const PPDFile &ppd) {
  for (const char *keyword : {"cupsFilter2", "cupsFilter"}) {
    if (ppd.Attribute(keyword)) return keyword;
  }
  return "";
}

std::vector<FilterLine> FilterLinesOf(const PPDFile &ppd) {
  const std::string keyword = FilterKeyword(ppd);
  if (!keyword.empty()) return LinesIn(ppd.Attributes(keyword));
  return {{kPostScriptType, "", 0, kPassedOn, std::nullopt}};
}

std::vector<FilterLine> PreFilterLinesOf(const PPDFile &ppd) {
  return LinesIn(ppd.Attributes("cupsPreFilter"));
}

bool IsForDocuments(const FilterLine &line) {
  return line.source != "application/vnd.cups-command" &&
         line.source != "application/vnd.cups-raw" && line.source != "application/octet-stream";
}

bool LeavesLayoutToOthers(const PPDFile &ppd) {
  const std::vector<FilterLine> lines = FilterLinesOf(ppd);
  return std::ranges::any_of(lines,
                             [](const FilterLine &line) {
                               return line.source == "application/pdf" && line.program == kPassedOn;
                             }) &&
         std::ranges::none_of(lines,
                              [](const FilterLine &line) { return line.source == kLaidOutPdf; });
}

bool PassesPagesOn(const PPDFile &ppd) {
  return std::ranges::any_of(FilterLinesOf(ppd), [](const FilterLine &line) {
    return line.source == kLaidOutPdf && line.program == kPassedOn;
  });
}
