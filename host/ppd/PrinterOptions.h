// The printer options that an extension bundle brings along for PPD files that lack them.

#ifndef HOST_PPD_PRINTEROPTIONS_H
#define HOST_PPD_PRINTEROPTIONS_H

#include <string>

// Lines of a PPD file, each ending with LF; empty: the bundle has none for such printers.
struct OptionLines {
  std::string color;
  std::string monochrome;

  bool operator==(const OptionLines &) const = default;
};

struct PrinterOptions {
  std::string bundle;  // its identifier
  std::string name;    // for people
  // The attribute by which the bundle knows a printer with the options; empty: not told.
  std::string support_keyword;
  std::string support_value;
  // Whose code the printer runs.
  OptionLines printer;
  // Of which a filter takes the choices, to do to the pages of a document what they say: a program
  // with the print system's interface for filters, by its name; empty: there is none.
  std::string document_filter;
  std::string document_package = {};  // that has the program; empty: not told
  // A filter that prints pictures in the way of documents, through that one, where the print system
  // would send them past it; empty: there is none.
  std::string picture_filter = {};
  OptionLines document;
};

#endif
