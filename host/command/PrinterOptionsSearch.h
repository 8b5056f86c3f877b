// The bundles that bring printer options.

#ifndef HOST_COMMAND_PRINTEROPTIONSSEARCH_H
#define HOST_COMMAND_PRINTEROPTIONSSEARCH_H

#include <filesystem>
#include <vector>

#include "host/base/Expected.h"
#include "host/ppd/PrinterOptions.h"

// Of all bundles that are found, the named one (if not empty) first; never empty. The failure: no
// bundle, none with printer options, the named one has none, or one cannot give them.
Expected<std::vector<PrinterOptions>> FindPrinterOptions(const std::filesystem::path &named);

#endif
