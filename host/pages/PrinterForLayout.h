// A printer's description for the program that lays out pages.

#ifndef HOST_PAGES_PRINTERFORLAYOUT_H
#define HOST_PAGES_PRINTERFORLAYOUT_H

#include <string>
#include <string_view>

enum class LastSide {
  kAsPrinter,
  kBack  // two-sided, an empty side is added where the document ends on a front
};

// The PPD file as that of a printer which makes no copies itself, so that they are pages.
std::string ForLayout(std::string_view ppd, LastSide side);

#endif
