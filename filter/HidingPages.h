// Pages that would hide a number behind them.

#ifndef FILTER_HIDINGPAGES_H
#define FILTER_HIDINGPAGES_H

#include <string>
#include <string_view>
#include <vector>

#include "numbering/Choices.h"

struct LookedAt {
  std::vector<bool> hiding;  // pages that are not in it may hide a number, too
  std::vector<std::string> complaints;  // about pages where it could not tell
};

// Asks backgroundnumbers-look, which stands beside this program, about the document that lies in
// this part of a file.
LookedAt HidingPages(int file, size_t begin, size_t size, const numbering::Choices &choices);

#endif
