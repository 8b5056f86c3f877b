// The lines that extension bundles have in a PPD file, each bundle's between two marks.

#ifndef HOST_PPD_EDIT_OPTIONBLOCKS_H
#define HOST_PPD_EDIT_OPTIONBLOCKS_H

#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"

struct OptionBlock {
  std::string bundle;  // its identifier
  std::string lines;   // each ends with LF
};

// A PPD file in two parts: what its maker wrote, byte for byte, and the blocks behind it.
struct BlockedPPD {
  std::string base;
  std::vector<OptionBlock> blocks;
};

// Blocks may stand anywhere. The failure: the marks are not as they were written.
Expected<BlockedPPD> SplitBlocks(std::string_view ppd);

// The blocks at the end of the base, with its line ends. Splitting the answer gives these parts
// again, also where the base's last line has no end.
std::string JoinBlocks(const BlockedPPD &ppd);

#endif
