// The printer options that a bundle brings along.

#ifndef HOST_EXTENSION_BUNDLEPRINTEROPTIONS_H
#define HOST_EXTENSION_BUNDLEPRINTEROPTIONS_H

#import <Foundation/Foundation.h>

#include <optional>

#include "host/base/Expected.h"
#include "host/extension/ExtensionBundle.h"
#include "host/ppd/PrinterOptions.h"

// Those of the resources that the bundle's Info.plist names under PDEPrinterOptions and
// PDEDocumentFilter, by Color and Monochrome, with the filter's name under Program of the latter,
// that of the one for pictures under Pictures and that of the package that has them under Package,
// and the attribute under PDESupportAttribute. No value inside: it has neither. The failure: a
// resource that it names is not there, or no text of ASCII characters, a filter has no name, or the
// bundle has no identifier to mark the options with.
Expected<std::optional<PrinterOptions>> PrinterOptionsOf(const ExtensionBundle &bundle);

#endif
