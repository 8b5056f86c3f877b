#include "portal/Texts.h"

#include <algorithm>

#include "host/base/Utf8.h"

namespace {

constexpr size_t kLongest = 200;  // in bytes
constexpr size_t kLongestName = 255;

bool IsAlphanumeric(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9');
}

bool IsHexadecimal(char character) {
  return (character >= 'a' && character <= 'f') || (character >= 'A' && character <= 'F') ||
         (character >= '0' && character <= '9');
}

// Control characters, line ends among them, which turn into blanks.
bool IsBreak(std::string_view character) {
  const auto byte = static_cast<unsigned char>(character.front());
  if (character.size() == 1) return byte < ' ' || byte == 0x7f;
  if (character.size() == 2 && byte == 0xc2) {
    return static_cast<unsigned char>(character[1]) < 0xa0;
  }
  return character == "\u2028" || character == "\u2029";
}

// Marks of direction and width: with them a text may look like another one.
bool IsUnseen(std::string_view character) {
  const auto is_from = [character](std::string_view first, std::string_view last) {
    return character.size() == first.size() && character >= first && character <= last;
  };
  return character == "\u00ad" || character == "\u061c" || character == "\ufeff" ||
         is_from("\u200b", "\u200f") || is_from("\u202a", "\u202e") || is_from("\u2060", "\u206f");
}

}  // namespace

std::string CleanText(std::string_view text) {
  // What comes behind is cut off anyway, whatever it is.
  constexpr size_t kLooked = 16 * kLongest;
  if (text.size() > kLooked) text = WithoutCutCharacter(text.substr(0, kLooked));
  const std::string whole = ToUtf8(text);
  std::string clean;
  for (std::string_view rest = whole; !rest.empty();) {
    const std::string_view character = rest.substr(0, LengthOfUtf8Character(rest));
    rest.remove_prefix(character.size());
    if (IsUnseen(character)) continue;
    const bool is_blank = character == " " || IsBreak(character);
    if (is_blank && (clean.empty() || clean.back() == ' ')) continue;
    if (clean.size() + character.size() > kLongest) {
      clean += "\u2026";
      break;
    }
    clean += is_blank ? " " : character;
  }
  if (clean.ends_with(' ')) clean.pop_back();
  return clean;
}

std::string CleanLabel(std::string_view text) {
  const std::string clean = CleanText(text);
  std::string label;
  for (size_t at = 0; at < clean.size(); ++at) {
    if (clean[at] == '_' && at + 1 < clean.size()) ++at;
    label += clean[at];
  }
  return label;
}

std::string CleanParent(std::string_view parent) {
  constexpr std::string_view kKind = "x11:";
  constexpr size_t kMostDigits = 8;
  if (!parent.starts_with(kKind)) return "";
  std::string_view digits = parent.substr(kKind.size());
  if (digits.starts_with("0x")) digits.remove_prefix(2);
  if (digits.empty() || digits.size() > kMostDigits ||
      !std::ranges::all_of(digits, IsHexadecimal)) {
    return "";
  }
  return std::string(kKind).append(digits);
}

bool IsApplicationName(std::string_view name) {
  return !name.empty() && name.size() <= kLongestName && IsAlphanumeric(name.front()) &&
         std::ranges::all_of(name, [](char character) {
           return IsAlphanumeric(character) || character == '.' || character == '_' ||
                  character == '-';
         });
}

bool IsQueueName(std::string_view name) {
  constexpr size_t kLongestQueue = 127;
  return !name.empty() && name.size() <= kLongestQueue && name.front() != '-' &&
         std::ranges::none_of(name, [](char character) {
           const auto byte = static_cast<unsigned char>(character);
           return byte <= ' ' || byte == 0x7f || character == '/' || character == '#' ||
                  character == '\\' || character == '\'' || character == '"';
         });
}
