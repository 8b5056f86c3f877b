// Names in the order in which people look for them.

#ifndef HOST_BASE_NAMEORDER_H
#define HOST_BASE_NAMEORDER_H

#include <string_view>

// Whether the name comes before the other one in lists of the program's language: as its letters
// follow each other, those of either case side by side, and digits by their value, "Draft 2" before
// "Draft 10". By bytes where that is no difference, so that of two names one comes before the
// other. Both are UTF-8.
//
// The platform knows the order of every language. std::locale and strcoll know those whose locales
// the administrator has made, and no values of digits.
bool NameComesBefore(std::string_view name, std::string_view other);

#endif
