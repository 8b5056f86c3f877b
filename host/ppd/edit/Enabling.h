// Giving a PPD file the printer options of extension bundles, and taking them out again.

#ifndef HOST_PPD_EDIT_ENABLING_H
#define HOST_PPD_EDIT_ENABLING_H

#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"
#include "host/ppd/PrinterOptions.h"
#include "host/ppd/edit/DrawingMethod.h"

struct EnabledPPD {
  std::string text;
  std::string filter;          // that the print server runs for it; empty: the printer draws
  std::string picture_filter;  // beside it; empty: none
};

// The PPD file with a block of lines for each of these bundles in the place of an earlier one;
// all other bytes stay. The answer has been opened by libcups and has the options, and all of the
// printer's own. The failure says why these options are not for this printer, or this file.
Expected<EnabledPPD> EnableOptions(std::string_view ppd, const std::vector<PrinterOptions> &options,
                                   DrawingMethod method = DrawingMethod::kFitting);

// The same with the options of this bundle's that its document filter takes, for any printer: no
// printer gets to see them.
Expected<std::string> AddDocumentOptions(std::string_view ppd, const PrinterOptions &options);

struct DisabledPPD {
  std::string text;                  // the PPD file as its maker wrote it
  std::vector<std::string> bundles;  // the identifiers of those whose options were in it
};

// The failure: it is no PPD file, or what was added cannot be told from the rest any more.
Expected<DisabledPPD> DisableOptions(std::string_view ppd);

#endif
