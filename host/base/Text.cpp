#include "host/base/Text.h"

#include "host/base/OneLine.h"
#include "host/base/Utf8.h"

std::string_view Trimmed(std::string_view text) {
  constexpr char kBlanks[] = " \t\r\n";
  const size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::string Quoted(std::string_view text) {
  constexpr size_t kLongest = 40;
  const bool is_long = text.size() > kLongest;
  if (is_long) text = WithoutCutCharacter(text.substr(0, kLongest));
  return "\"" + OnOneLine(ToUtf8(text)) + (is_long ? "..." : "") + "\"";
}
