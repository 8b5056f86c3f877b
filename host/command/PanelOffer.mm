#include "host/command/PanelOffer.h"

#include "host/job/JobTicket.h"

PanelOffer PanelsOfferedFor(const PPDFile *ppd, Extensions &extensions) {
  PanelOffer offer;
  if (ppd != nullptr) {
    extensions.LoadNamedBy(*ppd);
    PrintSettings settings = EmptyPrintSettings();
    auto host =
        Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings.get()
                                                                            ppdFile:ppd->get()]);
    for (const auto &panel : extensions.Panels(host.get())) offer.panels.push_back(panel->name());
  }
  if (offer.panels.empty()) offer.reason = extensions.ReasonForNoPanel(ppd);
  return offer;
}
