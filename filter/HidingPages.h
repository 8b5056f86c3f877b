// Pages that would hide a number behind them.

#ifndef FILTER_HIDINGPAGES_H
#define FILTER_HIDINGPAGES_H

#include <string>
#include <string_view>
#include <vector>

#include "numbering/Choices.h"

// Asks backgroundnumbers-look, which stands beside this program, about the document that lies in
// this part of a file. Pages that are not in the answer may hide it, too: it could not tell, which
// is in the log.
std::vector<bool> HidingPages(int file, size_t begin, size_t size,
                              const numbering::Choices &choices);

#endif
