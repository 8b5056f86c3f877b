#include "host/command/PanelOffer.h"

#include "host/base/Localized.h"
#include "host/job/PrintSettings.h"

namespace {

PanelOffer Offer(const PPDFile *ppd, Extensions &extensions) {
  PanelOffer offer;
  if (ppd != nullptr) {
    PrintSettings settings = EmptyPrintSettings();
    auto host =
        Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings.get()
                                                                            ppdFile:ppd->get()]);
    for (const auto &panel : extensions.Panels(host.get())) offer.panels.push_back(panel->name());
  }
  if (offer.panels.empty()) offer.reason = extensions.ReasonForNoPanel(ppd);
  return offer;
}

}  // namespace

PanelOffer PanelsOfferedFor(const PPDFile *ppd, Extensions &extensions) {
  // That none could be loaded is told in the user's language.
  if (ppd != nullptr) extensions.LoadNamedBy(*ppd);
  return InEnglish([&] { return Offer(ppd, extensions); });
}
