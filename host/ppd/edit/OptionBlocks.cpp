#include "host/ppd/edit/OptionBlocks.h"

#include <optional>

#include "host/base/Localized.h"
#include "host/ppd/edit/PPDText.h"

namespace {

constexpr std::string_view kBegin = "*% BEGIN printer options of ";
constexpr std::string_view kEnd = "*% END printer options of ";
constexpr std::string_view kOrigin = ", added by pdeprint";
constexpr std::string_view kOpenLine = "; the line before had no end";

struct Mark {
  bool is_begin = false;
  std::string bundle;
  bool is_after_open_line = false;  // the line end before it is no part of the base
};

std::string TextOf(const Mark &mark) {
  std::string text(mark.is_begin ? kBegin : kEnd);
  text += mark.bundle;
  text += kOrigin;
  if (mark.is_after_open_line) text += kOpenLine;
  return text;
}

// None: the line is no mark.
std::optional<Mark> MarkOn(std::string_view line) {
  Mark mark;
  mark.is_begin = line.starts_with(kBegin);
  if (!mark.is_begin && !line.starts_with(kEnd)) return std::nullopt;
  line.remove_prefix(mark.is_begin ? kBegin.size() : kEnd.size());
  mark.bundle = line.substr(0, line.find(kOrigin));
  mark.is_after_open_line = mark.is_begin && line.ends_with(kOpenLine);
  return mark;
}

void RemoveLastLineEnd(std::string &text) {
  if (text.ends_with('\n')) {
    text.pop_back();
    if (text.ends_with('\r')) text.pop_back();
  } else if (text.ends_with('\r')) {
    text.pop_back();
  }
}

// The text's part is the line.
Failure Edited(size_t line, std::string_view text) {
  return Failure{Localized(
      "the lines that pdeprint has added cannot be told from the others: %1; begin with the "
      "printer's own PPD file instead",
      {Filled(text, {std::to_string(line)})})};
}

Failure WithoutEnd(size_t line) {
  return Edited(line, Localized("there is no end to what begins on line %1"));
}

}  // namespace

Expected<BlockedPPD> SplitBlocks(std::string_view ppd) {
  BlockedPPD result;
  bool is_inside = false;
  size_t begin = 0;
  std::optional<size_t> open_line;  // where the base goes on behind a line without an end
  size_t number = 0;
  for (const TextLine &line : LinesOf(ppd)) {
    ++number;
    const std::optional<Mark> mark = MarkOn(line.text);
    if (mark && TextOf(*mark) != line.text) {
      return Edited(number, Localized("the mark was changed on line %1"));
    }
    if (!mark && is_inside) {
      result.blocks.back().lines.append(line.text).append("\n");
    } else if (!mark) {
      result.base.append(line.text).append(line.end);
    } else if (mark->is_begin) {
      if (is_inside) return WithoutEnd(begin);
      is_inside = true;
      begin = number;
      result.blocks.push_back({mark->bundle, ""});
      if (mark->is_after_open_line) open_line = result.base.size();
    } else {
      if (!is_inside || result.blocks.back().bundle != mark->bundle) {
        return Edited(number, Localized("there is no beginning to what ends on line %1"));
      }
      is_inside = false;
    }
  }
  if (is_inside) return WithoutEnd(begin);
  if (open_line == result.base.size()) RemoveLastLineEnd(result.base);
  return result;
}

std::string JoinBlocks(const BlockedPPD &ppd) {
  if (ppd.blocks.empty()) return ppd.base;
  const std::string_view end = LineEndOf(ppd.base);
  bool is_open = !ppd.base.empty() && !ppd.base.ends_with('\n') && !ppd.base.ends_with('\r');
  std::string added;
  if (is_open) added += '\n';
  for (const OptionBlock &block : ppd.blocks) {
    added += TextOf({true, block.bundle, is_open}) + '\n';
    added += block.lines;
    added += TextOf({false, block.bundle, false}) + '\n';
    is_open = false;
  }
  return ppd.base + WithLineEnds(added, end);
}
