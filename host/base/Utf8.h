// Texts from files that may be in another encoding than they say, or cut in the middle of a
// character.

#ifndef HOST_BASE_UTF8_H
#define HOST_BASE_UTF8_H

#include <string>
#include <string_view>

// How many bytes the character takes with which the text begins; 0: that is no UTF-8, or the text
// is empty.
size_t LengthOfUtf8Character(std::string_view text);

// The text in UTF-8: bytes that are none are taken for ISO Latin 1.
std::string ToUtf8(std::string_view text);

// The text without the beginning of a character that it ends in the middle of.
std::string_view WithoutCutCharacter(std::string_view text);

#endif
