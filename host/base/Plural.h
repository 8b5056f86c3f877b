// Which form of its words a language uses for a number.

#ifndef HOST_BASE_PLURAL_H
#define HOST_BASE_PLURAL_H

#include <cstddef>
#include <string_view>

// The form for a whole number in the language, by its code: "zero", "one", "two", "few", "many", or
// "other" for the numbers that are left, as the Unicode CLDR calls them; below a million, from
// which on some languages have another one. Languages that nothing is known of are like English.
//
// By hand: the C library reads such rules from catalogs of its own kind alone, and the platform
// reads none.
std::string_view PluralForm(std::string_view language, size_t number);

#endif
