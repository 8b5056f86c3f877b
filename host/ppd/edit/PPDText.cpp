#include "host/ppd/edit/PPDText.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Text.h"

namespace {

// The length of the line end at this place; 0: there is none.
size_t LengthOfLineEnd(std::string_view text, size_t at) {
  if (at >= text.size()) return 0;
  if (text[at] == '\n') return 1;
  if (text[at] != '\r') return 0;
  return at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
}

void SplitName(std::string_view name, PPDStatement &statement) {
  const size_t blank = std::min(name.find_first_of(" \t"), name.size());
  statement.keyword = name.substr(0, blank);
  std::string_view rest = Trimmed(name.substr(blank));
  const size_t slash = std::min(rest.find('/'), rest.size());
  statement.option = Trimmed(rest.substr(0, slash));
  if (slash < rest.size()) statement.label = Trimmed(rest.substr(slash + 1));
  if (statement.option.starts_with('*')) statement.option.remove_prefix(1);
}

void Parse(std::string_view text, PPDStatement &statement) {
  if (!text.starts_with('*') || text.starts_with("*%")) return;
  const size_t colon = text.find(':');
  SplitName(text.substr(1, std::min(colon, text.size()) - 1), statement);
  if (colon == std::string_view::npos) return;
  std::string_view value = Trimmed(text.substr(colon + 1));
  if (value.starts_with('"')) {
    value.remove_prefix(1);
    value = value.substr(0, value.find('"'));
  }
  statement.value = value;
}

// Where the statement that begins here ends: at the first line end outside of a quotation. Only
// behind the first colon do quotation marks count.
size_t EndOfStatement(std::string_view text, size_t begin, PPDStatement &statement) {
  const bool is_comment = text.substr(begin).starts_with("*%");
  bool has_colon = false;
  bool is_quoted = false;
  size_t at = begin;
  for (; at < text.size(); ++at) {
    if (!is_quoted && LengthOfLineEnd(text, at) > 0) break;
    if (text[at] == ':' && !is_comment) has_colon = true;
    if (text[at] == '"' && has_colon) is_quoted = !is_quoted;
  }
  statement.is_unclosed = is_quoted;
  return at;
}

size_t CountOfLines(std::string_view text) {
  size_t count = 0;
  for (const TextLine &line : LinesOf(text)) count += line.end.empty() ? 0 : 1;
  return count;
}

}  // namespace

std::vector<TextLine> LinesOf(std::string_view text) {
  std::vector<TextLine> lines;
  while (!text.empty()) {
    const size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const size_t length = LengthOfLineEnd(text, end);
    lines.push_back({text.substr(0, end), text.substr(end, length)});
    text.remove_prefix(end + length);
  }
  return lines;
}

std::string_view LineEndOf(std::string_view text) {
  size_t counts[3] = {};
  constexpr std::string_view kEnds[] = {"\n", "\r\n", "\r"};
  for (const TextLine &line : LinesOf(text)) {
    for (size_t kind = 0; kind < 3; ++kind) counts[kind] += line.end == kEnds[kind] ? 1 : 0;
  }
  return kEnds[std::max_element(std::begin(counts), std::end(counts)) - std::begin(counts)];
}

std::string WithLineEnds(std::string_view text, std::string_view end) {
  std::string result;
  for (const TextLine &line : LinesOf(text)) {
    result += line.text;
    if (!line.end.empty()) result += end;
  }
  return result;
}

std::vector<PPDStatement> StatementsOf(std::string_view ppd) {
  std::vector<PPDStatement> statements;
  size_t line = 1;
  for (size_t begin = 0; begin < ppd.size();) {
    PPDStatement statement;
    const size_t end = EndOfStatement(ppd, begin, statement);
    Parse(ppd.substr(begin, end - begin), statement);
    const size_t next = end + LengthOfLineEnd(ppd, end);
    statement.all = ppd.substr(begin, next - begin);
    statement.line = line;
    line += CountOfLines(statement.all);
    statements.push_back(statement);
    begin = next;
  }
  return statements;
}

std::string_view OptionOpenedBy(const PPDStatement &statement) {
  const bool opens = statement.keyword == "OpenUI" || statement.keyword == "JCLOpenUI";
  return opens ? statement.option : std::string_view();
}

Expected<void> CheckWhole(std::string_view ppd) {
  const PPDStatement *option = nullptr;
  const PPDStatement *group = nullptr;
  const std::vector<PPDStatement> statements = StatementsOf(ppd);
  for (const PPDStatement &statement : statements) {
    const std::string line = std::to_string(statement.line);
    if (statement.all.find('\0') != std::string_view::npos) {
      return Failure{Localized("there is a zero byte in the statement on line %1", {line})};
    }
    if (statement.is_unclosed) {
      return Failure{Localized("the quotation that begins on line %1 has no end", {line})};
    }
    if (!OptionOpenedBy(statement).empty()) option = &statement;
    if (statement.keyword == "CloseUI" || statement.keyword == "JCLCloseUI") option = nullptr;
    if (statement.keyword == "OpenGroup") group = &statement;
    if (statement.keyword == "CloseGroup") group = nullptr;
  }
  const PPDStatement *open = option != nullptr ? option : group;
  if (open == nullptr) return {};
  return Failure{Localized("the file is cut off: what *%1 opens on line %2 is not closed",
                           {std::string(open->keyword), std::to_string(open->line)})};
}
