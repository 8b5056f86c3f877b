#include "host/command/PrinterOptionsSearch.h"

#include "host/base/Localized.h"
#include "host/extension/BundlePrinterOptions.h"
#include "host/extension/Extensions.h"

Expected<std::vector<PrinterOptions>> FindPrinterOptions(const std::filesystem::path &named) {
  Expected<Extensions> extensions = Extensions::Load(named);
  if (!extensions) return extensions.failure();
  if (extensions->bundles().empty()) return Failure{extensions->ReasonForNoPanel(nullptr)};
  std::vector<PrinterOptions> found;
  std::string without;
  for (const ExtensionBundle &bundle : extensions->bundles()) {
    Expected<std::optional<PrinterOptions>> options = PrinterOptionsOf(bundle);
    if (!options) return options.failure();
    if (*options) {
      found.push_back(std::move(**options));
      continue;
    }
    const bool is_named = !named.empty() && &bundle == &extensions->bundles().front();
    without += (without.empty() ? "" : ", ") + bundle.Name();
    if (is_named) break;
  }
  const bool named_has_none = !named.empty() && found.empty();
  if (!found.empty() && !named_has_none) return found;
  return Failure{Localized(
      "no printer options: PDEPrinterOptions in the Info.plist of a bundle names them, and %1 has "
      "none; name another bundle with --plugin",
      {without})};
}
