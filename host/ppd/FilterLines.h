// The lines of a PPD file by which the print server finds its way from documents to the printer.

#ifndef HOST_PPD_FILTERLINES_H
#define HOST_PPD_FILTERLINES_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/ppd/PPDFile.h"

inline constexpr char kLaidOutPdf[] = "application/vnd.cups-pdf";
inline constexpr char kPostScriptType[] = "application/vnd.cups-postscript";
inline constexpr char kRasterType[] = "application/vnd.cups-raster";
inline constexpr char kPassedOn[] = "-";  // in the place of a program

struct FilterLine {
  std::string source;       // the type of what goes in
  std::string destination;  // of what comes out; empty: it is not said
  int cost = 0;
  std::string program;
  // Bytes that what goes in may have; none: any number.
  std::optional<long long> most;
};

// As the print server cuts the value; none: it does not understand it.
std::optional<FilterLine> FilterLineIn(std::string_view value);

// Which keyword its lines have: where there is one of the newer kind, cupsFilter2, the server reads
// no others. Empty: it has none.
std::string FilterKeyword(const PPDFile &ppd);

// Those that the server reads, in the file's order. A file without any is a PostScript printer's,
// for which the server has a line of its own, which is answered then.
std::vector<FilterLine> FilterLinesOf(const PPDFile &ppd);

// What runs before filters that take the source.
std::vector<FilterLine> PreFilterLinesOf(const PPDFile &ppd);

// Whether PDF documents are passed on before their pages are laid out: another print server does
// that.
bool LeavesLayoutToOthers(const PPDFile &ppd);

// Whether pages that are laid out as PDF go to the printer without any program at work on them.
bool PassesPagesOn(const PPDFile &ppd);

// Commands for the printer and documents that are ready for it take no part in options.
bool IsForDocuments(const FilterLine &line);

#endif
