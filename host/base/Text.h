// Texts from outside: typed, or from files.

#ifndef HOST_BASE_TEXT_H
#define HOST_BASE_TEXT_H

#include <string>
#include <string_view>

// Without blanks, tabs and line ends around it.
std::string_view Trimmed(std::string_view text);

// In quotation marks for a message: UTF-8, on one line, and cut short where it is long.
std::string Quoted(std::string_view text);

#endif
