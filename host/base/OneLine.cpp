#include "host/base/OneLine.h"

#include "host/base/Text.h"
#include "host/base/Utf8.h"

namespace {

// Beyond ASCII: control characters, line ends, marks of direction.
bool IsControl(std::string_view character) {
  const auto is_between = [character](std::string_view first, std::string_view last) {
    return character.size() == first.size() && character >= first && character <= last;
  };
  return is_between("\u0080", "\u009f") || is_between("\u200e", "\u200f") ||
         is_between("\u2028", "\u202e") || is_between("\u2066", "\u2069");
}

}  // namespace

std::string OnOneLine(std::string text) {
  for (char &character : text) {
    if (static_cast<unsigned char>(character) < ' ' || character == '\x7f') character = ' ';
  }
  return text;
}

std::string ShortLine(std::string_view text, size_t longest) {
  const std::string line = OnOneLine(ToUtf8(text));
  std::string_view rest = Trimmed(line);
  std::string cleaned;
  for (size_t count = 0; !rest.empty(); ++count) {
    const std::string_view character = rest.substr(0, LengthOfUtf8Character(rest));
    if (count + 1 == longest && character.size() < rest.size()) return cleaned + "…";
    cleaned += IsControl(character) ? " " : character;
    rest.remove_prefix(character.size());
  }
  return cleaned;
}
