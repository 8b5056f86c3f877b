#include "host/job/TicketText.h"

#include <algorithm>
#include <utility>

#include "host/base/Localized.h"

namespace {

constexpr int kDeepest = 100;

// Where markup that holds text, which may look like tags, ends; 0 if none begins here.
size_t EndOfText(std::string_view xml, size_t at) {
  constexpr std::pair<std::string_view, std::string_view> kTexts[] = {
      {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
  for (const auto &[start, end] : kTexts) {
    if (xml.substr(at).starts_with(start)) return xml.find(end, at + start.size());
  }
  return 0;
}

int DeepestNesting(std::string_view xml) {
  int depth = 0;
  int deepest = 0;
  for (size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
    if (const size_t end = EndOfText(xml, at); end != 0) {
      if (end == std::string_view::npos) break;
      at = end;
      continue;
    }
    const std::string_view tag = xml.substr(at + 1, xml.find('>', at) - at - 1);
    if (tag.starts_with("/dict") || tag.starts_with("/array")) --depth;
    if (tag.ends_with('/')) continue;  // an empty element
    if (tag.starts_with("dict") || tag.starts_with("array")) deepest = std::max(deepest, ++depth);
  }
  return deepest;
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  return text;
}

std::optional<std::string> ReasonAgainstTicketText(std::string_view text) {
  if (text.empty()) return Localized("the file is empty");
  if (text.size() > kLargestTicket) return Localized("the file is larger than 1 MiB");
  if (text.find("<plist") == std::string_view::npos) return Localized("there is no <plist> in it");
  if (DeepestNesting(text) > kDeepest) return Localized("it is nested deeper than 100 levels");
  return std::nullopt;
}
