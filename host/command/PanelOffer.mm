#include "host/command/PanelOffer.h"

#include "host/base/Localized.h"
#include "host/job/PrintSettings.h"

namespace {

PanelOffer Offer(std::optional<PPDFile> ppd, const DocumentFormats &formats,
                 Extensions &extensions) {
  PanelOffer offer;
  QueueAbility ability = AbilityOf(std::move(ppd), formats, extensions);
  if (ability.ppd) {
    PrintSettings settings = EmptyPrintSettings();
    auto host = Retained<HostCallback *>::Adopt(
        [[HostCallback alloc] initWithPrintSettings:settings.get() ppdFile:ability.ppd->get()]);
    for (const auto &panel : extensions.Panels(host.get())) offer.panels.push_back(panel->name());
  }
  if (offer.panels.empty()) {
    offer.reason = WithReason(extensions.ReasonForNoPanel(ability.ppd ? &*ability.ppd : nullptr),
                              ability.why_not_here);
  } else {
    offer.applications = std::move(ability.applications);
  }
  return offer;
}

}  // namespace

PanelOffer PanelsOfferedFor(std::optional<PPDFile> ppd, const DocumentFormats &formats,
                            Extensions &extensions) {
  // That none could be loaded is told in the user's language.
  if (ppd) extensions.LoadNamedBy(*ppd);
  return InEnglish([&] { return Offer(std::move(ppd), formats, extensions); });
}
