// The printer options that an extension bundle brings along for PPD files that lack them.

#ifndef HOST_PPD_PRINTEROPTIONS_H
#define HOST_PPD_PRINTEROPTIONS_H

#include <string>

struct PrinterOptions {
  std::string bundle;  // its identifier
  std::string name;    // for people
  // The attribute by which the bundle knows a printer with the options; empty: not told.
  std::string support_keyword;
  std::string support_value;
  // Lines of a PPD file, each ending with LF; empty: the bundle has none for such printers.
  std::string color;
  std::string monochrome;
};

#endif
