// The print system's tables of converters.

#ifndef HOST_PAGES_CONVERSIONS_H
#define HOST_PAGES_CONVERSIONS_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

struct Conversion {
  std::string from, to;  // MIME types
  int cost = 0;
  std::string filter;  // the program's name
};

// The lines of such a table; others are passed over.
std::vector<Conversion> ParseConversions(std::string_view table);

// Those of all tables (*.convs) in the folder.
std::vector<Conversion> ReadConversions(const std::filesystem::path &folder);

// The cheapest way from one type to another, step by step; empty: there is none, or the types are
// the same.
std::vector<Conversion> WayBetween(const std::vector<Conversion> &conversions,
                                   const std::string &from, const std::string &to);

#endif
