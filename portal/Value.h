// What the portal's dictionaries hold.

#ifndef PORTAL_VALUE_H
#define PORTAL_VALUE_H

#include <cstdint>
#include <map>
#include <string>
#include <variant>

// Values of other kinds are not taken over: no key that is known has one.
using Value = std::variant<bool, int32_t, uint32_t, double, std::string>;
using Dictionary = std::map<std::string, Value>;

// The value of a key, if it is of this kind; null: it is not there, or something else.
template <typename Kind>
const Kind *Find(const Dictionary &dictionary, const std::string &key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : std::get_if<Kind>(&found->second);
}

#endif
