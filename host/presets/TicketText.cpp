#include "host/presets/TicketText.h"

#include <algorithm>
#include <cctype>
#include <utility>
#include <vector>

#include "host/base/Localized.h"
#include "host/base/Text.h"

namespace {

constexpr size_t kDeepest = 100;

bool IsBlank(std::string_view text) { return Trimmed(text).empty(); }

bool IsName(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](unsigned char character) {
    return std::isalnum(character) != 0 ||
           std::string_view("-._:").find(static_cast<char>(character)) != std::string_view::npos;
  });
}

// Where markup that holds text, which may look like tags, ends; npos if it does not, 0 if none
// begins here.
size_t EndOfText(std::string_view xml) {
  constexpr std::pair<std::string_view, std::string_view> kTexts[] = {{"<!--", "-->"},
                                                                      {"<![CDATA[", "]]>"}};
  for (const auto &[start, end] : kTexts) {
    if (!xml.starts_with(start)) continue;
    const size_t at = xml.find(end, start.size());
    return at == std::string_view::npos ? at : at + end.size();
  }
  return 0;
}

// Where the tag, or declaration, ends with which the text begins; npos if it does not, or has other
// markup in it.
size_t EndOfTag(std::string_view xml) {
  char quotation = 0;
  for (size_t at = 1; at < xml.size() && xml[at] != '<'; ++at) {
    const char character = xml[at];
    if (quotation != 0) {
      if (character == quotation) quotation = 0;
    } else if (character == '"' || character == '\'') {
      quotation = character;
    } else if (character == '>') {
      return at + 1;
    }
  }
  return std::string_view::npos;
}

// The elements that are open, from tag to tag. The parser descends into damaged text too, as it
// understands it: only what is well-formed is understood here in the same way.
class OpenElements {
 public:
  // False: the tag cannot stand here.
  bool Take(std::string_view tag) {
    tag = tag.substr(1, tag.size() - 2);
    if (tag.starts_with('/')) return Close(Trimmed(tag.substr(1)));
    const bool is_empty = tag.ends_with('/');
    if (is_empty) tag.remove_suffix(1);
    const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n"));
    if (!IsName(name) || (names_.empty() && has_begun_)) return false;
    has_begun_ = true;
    if (!is_empty) names_.push_back(name);
    return true;
  }

  bool has_begun() const { return has_begun_; }
  bool none() const { return names_.empty(); }
  size_t depth() const {
    return static_cast<size_t>(std::ranges::count(names_, "dict") +
                               std::ranges::count(names_, "array"));
  }

 private:
  bool Close(std::string_view name) {
    if (names_.empty() || names_.back() != name) return false;
    names_.pop_back();
    return true;
  }

  std::vector<std::string_view> names_;
  bool has_begun_ = false;
};

// A document type without declarations of its own, or a processing instruction. The parser takes
// the first > for the end of one.
bool IsDeclaration(std::string_view tag, const OpenElements &elements) {
  if (tag.starts_with("<?")) return tag.ends_with("?>");
  return tag.starts_with("<!DOCTYPE") && !elements.has_begun() &&
         tag.find('[') == std::string_view::npos;
}

std::string Damaged() { return Localized("the file is damaged or cut off"); }

std::optional<std::string> ReasonAgainstMarkup(std::string_view xml) {
  OpenElements elements;
  while (!xml.empty()) {
    const size_t begin = std::min(xml.find('<'), xml.size());
    if (elements.none() && !IsBlank(xml.substr(0, begin))) return Damaged();
    xml.remove_prefix(begin);
    if (xml.empty()) break;
    size_t end = EndOfText(xml);
    if (end == 0) {
      end = EndOfTag(xml);
      if (end == std::string_view::npos) return Damaged();
      const std::string_view tag = xml.substr(0, end);
      if (!IsDeclaration(tag, elements) && !elements.Take(tag)) return Damaged();
      if (elements.depth() > kDeepest) return Localized("it is nested deeper than 100 levels");
    } else if (end == std::string_view::npos || (elements.none() && xml.starts_with("<![CDATA["))) {
      return Damaged();
    }
    xml.remove_prefix(end);
  }
  if (elements.none() && elements.has_begun()) return std::nullopt;
  return Damaged();
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  return text;
}

std::string WithUtf8Declaration(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  if (text.starts_with("<?xml")) {
    const size_t end = text.find("?>");
    if (end != std::string_view::npos) text.remove_prefix(end + 2);
  }
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + std::string(text);
}

std::optional<std::string> ReasonAgainstTicketText(std::string_view text) {
  if (text.empty()) return Localized("the file is empty");
  if (text.size() > kLargestTicket) return Localized("the file is larger than 1 MiB");
  if (text.find("<plist") == std::string_view::npos) return Localized("there is no <plist> in it");
  return ReasonAgainstMarkup(text);
}
