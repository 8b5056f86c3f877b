// Texts from outside in reports of one line an entry.

#ifndef HOST_BASE_ONELINE_H
#define HOST_BASE_ONELINE_H

#include <string>

// The text with blanks for control characters: file names and values may hold line ends.
std::string OnOneLine(std::string text);

#endif
