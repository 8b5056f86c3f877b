#include "host/command/PortalsFile.h"

#include <algorithm>
#include <vector>

#include "host/base/Text.h"

namespace {

constexpr std::string_view kGroup = "[preferred]";
constexpr std::string_view kPrinting = "org.freedesktop.impl.portal.Print";
constexpr std::string_view kOurs = "org.freedesktop.impl.portal.Print=pdeprint\n";
constexpr std::string_view kKept = "#pdeprint: ";  // before a line that is out of use

struct Line {
  std::string_view text;  // with its end
  bool is_heading = false;
  bool is_preference = false;
  std::string_view key = {};  // of a preference
  std::string_view value = {};

  bool IsOfPrinting() const { return is_preference && key == kPrinting; }
  bool IsOurs() const { return IsOfPrinting() && value == "pdeprint"; }
  bool IsKept() const { return text.starts_with(kKept); }
};

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  bool is_in_group = false;
  while (!text.empty()) {
    Line line{.text = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1)};
    text.remove_prefix(line.text.size());
    const std::string_view words = Trimmed(line.text);
    if (words.starts_with('[')) {
      is_in_group = words == kGroup;
      line.is_heading = is_in_group;
    } else if (const size_t equals = words.find('=');
               is_in_group && !words.starts_with('#') && equals != std::string_view::npos) {
      line.is_preference = true;
      line.key = Trimmed(words.substr(0, equals));
      line.value = Trimmed(words.substr(equals + 1));
      if (line.value.ends_with(';')) line.value.remove_suffix(1);
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

bool HasPreferences(std::string_view text) {
  return std::ranges::any_of(LinesOf(text), &Line::is_preference);
}

// Of several lines the last one counts.
bool PrefersPdeprint(std::string_view text) {
  bool prefers = false;
  for (const Line &line : LinesOf(text)) {
    if (line.IsOfPrinting()) prefers = line.IsOurs();
  }
  return prefers;
}

std::string WithPdeprint(std::string_view text) {
  if (PrefersPdeprint(text)) return std::string(text);
  const std::string before = WithoutPdeprint(text);
  std::string with;
  bool is_there = false;
  for (const Line &line : LinesOf(before)) {
    if (line.IsOfPrinting()) with += kKept;
    with += line.text;
    if (!with.ends_with('\n')) with += '\n';
    if (line.is_heading && !is_there) {
      with += kOurs;
      is_there = true;
    }
  }
  return is_there ? with : with.append(kGroup).append("\n").append(kOurs);
}

std::string WithoutPdeprint(std::string_view text) {
  std::vector<Line> lines = LinesOf(text);
  std::erase_if(lines, [](const Line &line) { return line.IsOurs(); });
  const bool is_empty = std::ranges::none_of(
      lines, [](const Line &line) { return line.is_preference || line.IsKept(); });
  std::string without;
  for (const Line &line : lines) {
    // Without preferences, it would keep the portal from those of the desktop.
    if (is_empty && line.is_heading) continue;
    without += line.IsKept() ? line.text.substr(kKept.size()) : line.text;
  }
  return without;
}
