// Tables of texts as the build makes them.

#ifndef TESTS_SUPPORT_STRINGSTABLE_H
#define TESTS_SUPPORT_STRINGSTABLE_H

#include <string>
#include <string_view>

// The text in UTF-16 with a byte-order mark.
inline std::string Utf16(std::u16string_view text) {
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

#endif
