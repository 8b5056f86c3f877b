#include "host/base/Utf8.h"

namespace {

constexpr char32_t kLast = 0x10FFFF;
constexpr char32_t kFirstSurrogate = 0xD800;
constexpr char32_t kLastSurrogate = 0xDFFF;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// How many bytes the first one announces; 0: it cannot be a first one.
size_t AnnouncedLength(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte < 0x80) return 1;
  if (byte < 0xC0 || byte >= 0xF8) return 0;
  return byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
}

}  // namespace

size_t LengthOfUtf8Character(std::string_view text) {
  if (text.empty()) return 0;
  const size_t length = AnnouncedLength(text.front());
  if (length <= 1) return length;
  if (text.size() < length) return 0;

  char32_t character = static_cast<unsigned char>(text.front()) & (0x7FU >> length);
  for (const char byte : text.substr(1, length - 1)) {
    if (!IsContinuation(byte)) return 0;
    character = character << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[length] || character > kLast) return 0;
  if (character >= kFirstSurrogate && character <= kLastSurrogate) return 0;
  return length;
}

std::string ToUtf8(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  while (!text.empty()) {
    if (const size_t length = LengthOfUtf8Character(text)) {
      utf8 += text.substr(0, length);
      text.remove_prefix(length);
      continue;
    }
    const auto byte = static_cast<unsigned char>(text.front());
    utf8 += static_cast<char>(0xC0 | byte >> 6);
    utf8 += static_cast<char>(0x80 | (byte & 0x3F));
    text.remove_prefix(1);
  }
  return utf8;
}

std::string_view WithoutCutCharacter(std::string_view text) {
  for (size_t at = text.size(); at-- > 0;) {
    if (IsContinuation(text[at])) continue;
    return AnnouncedLength(text[at]) > text.size() - at ? text.substr(0, at) : text;
  }
  return text;
}
