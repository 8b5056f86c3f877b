#include "host/presets/PresetName.h"

#include <climits>
#include <initializer_list>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"

namespace {

constexpr std::string_view kEnding = ".plist";

// Unicode's white space apart from the control characters.
constexpr std::string_view kBlanks[] = {" ",      "\u00A0", "\u1680", "\u2000", "\u2001",
                                        "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
                                        "\u2007", "\u2008", "\u2009", "\u200A", "\u2028",
                                        "\u2029", "\u202F", "\u205F", "\u3000"};

// Letters of other scripts than ASCII are left as they are.
std::string InLowerCase(std::string_view text) {
  std::string lower(text);
  for (char &letter : lower) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return lower;
}

bool HasBlankAtAnEnd(std::string_view name) {
  for (const std::string_view blank : kBlanks) {
    if (name.starts_with(blank) || name.ends_with(blank)) return true;
  }
  return false;
}

bool IsUtf8(std::string_view text) {
  while (const size_t length = LengthOfUtf8Character(text)) text.remove_prefix(length);
  return text.empty();
}

// Of UTF-8: U+0000 to U+001F, and U+007F to U+009F.
bool HasControlCharacters(std::string_view text) {
  while (const size_t length = LengthOfUtf8Character(text)) {
    const std::string_view character = text.substr(0, length);
    if (length == 1 && (character < " " || character == "\x7F")) return true;
    if (length == 2 && character <= "\u009F") return true;
    text.remove_prefix(length);
  }
  return false;
}

// The value of a hexadecimal digit as FileNameOfPreset writes it, -1 for none.
int HexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

std::string WithoutEscapes(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const int high = text.size() < 3 || text[0] != '%' ? -1 : HexDigit(text[1]);
    const int low = high < 0 ? -1 : HexDigit(text[2]);
    result += low < 0 ? text[0] : static_cast<char>(high << 4 | low);
    text.remove_prefix(low < 0 ? 1 : 3);
  }
  return result;
}

}  // namespace

Expected<void> CheckPresetName(std::string_view name) {
  if (name.empty()) return Failure{Localized("the preset has no name; give it one")};
  const auto failure = [name](const std::string &why) {
    return Failure{Localized("no preset can be named %1: %2", {Quoted(name), why})};
  };
  if (!IsUtf8(name)) return failure(Localized("the name is not UTF-8; choose another one"));
  if (HasControlCharacters(name)) {
    return failure(
        Localized("the name has line ends, tabs or other control characters; leave them out"));
  }
  if (HasBlankAtAnEnd(name)) {
    return failure(Localized("the name begins or ends with a blank; leave it out"));
  }
  for (const char *reserved : {kDefaultSettings, kLastUsed}) {
    if (InLowerCase(name) == InLowerCase(reserved)) {
      return failure(
          Localized("every list of presets has an item of this name; choose another one"));
    }
  }
  if (FileNameOfPreset(name).size() > NAME_MAX) {
    return failure(Localized("the name is too long for a file; choose a shorter one"));
  }
  return {};
}

std::string FileNameOfPreset(std::string_view name) {
  std::string file_name;
  for (const char character : name) {
    if (character == '%') {
      file_name += "%25";
    } else if (character == '/') {
      file_name += "%2F";
    } else if (character == '.' && file_name.empty()) {
      file_name += "%2E";
    } else {
      file_name += character;
    }
  }
  return file_name.append(kEnding);
}

std::optional<std::string> PresetNameOfFile(std::string_view file_name) {
  if (!file_name.ends_with(kEnding)) return std::nullopt;
  std::string name = WithoutEscapes(file_name.substr(0, file_name.size() - kEnding.size()));
  if (!CheckPresetName(name) || FileNameOfPreset(name) != file_name) return std::nullopt;
  return name;
}
