// Characters beyond the basic plane, such as emoji, in property lists that the platform has
// written.
//
// By hand: its writer escapes them as \UD83D\UDE00, a notation of its older format, which no reader
// of XML knows and its own takes for backslashes and letters.

#ifndef HOST_PRESETS_ESCAPEDPAIRS_H
#define HOST_PRESETS_ESCAPEDPAIRS_H

#include <string>
#include <string_view>

// The text with the characters themselves, in UTF-8, in the places of such pairs.
std::string WithoutEscapedPairs(std::string_view xml);

#endif
