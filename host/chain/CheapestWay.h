// The print server's choice between ways of converting a document.

#ifndef HOST_CHAIN_CHEAPESTWAY_H
#define HOST_CHAIN_CHEAPESTWAY_H

#include <optional>
#include <string>
#include <vector>

#include "host/ppd/FilterLines.h"

// The steps from one type to another that cost least together. A way in one step wins against
// others that cost as much, then the first that is found. Without value: there is none.
std::optional<std::vector<FilterLine>> CheapestWay(const std::vector<FilterLine> &conversions,
                                                   const std::string &from, const std::string &to);

#endif
