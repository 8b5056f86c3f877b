// Texts from outside in reports of one line an entry.

#ifndef HOST_BASE_ONELINE_H
#define HOST_BASE_ONELINE_H

#include <cstddef>
#include <string>
#include <string_view>

// The text with blanks for control characters: file names and values may hold line ends.
std::string OnOneLine(std::string text);

// A text of another program's for a title or a button: UTF-8, without control characters and
// without those that turn around the direction of what stands beside it, and at most so many
// characters long; what is cut short ends in an ellipsis.
std::string ShortLine(std::string_view text, size_t longest);

#endif
