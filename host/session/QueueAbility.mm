#include "host/session/QueueAbility.h"

#include "host/base/Localized.h"
#include "host/extension/BundlePrinterOptions.h"
#include "host/pages/DocumentType.h"
#include "host/pages/Programs.h"
#include "host/ppd/AppliedBy.h"
#include "host/ppd/FilterLines.h"
#include "host/ppd/PPDSource.h"
#include "host/ppd/edit/Enabling.h"
#include "host/ppd/edit/PPDText.h"

namespace {

DocumentFilter FilterOf(const PrinterOptions &options) {
  return {options.document_filter, options.name, options.document_package};
}

void AddFilter(const PrinterOptions &options, PageMaking &making) {
  making.filters.push_back(FilterOf(options));
  for (const std::string &lines : {options.document.color, options.document.monochrome}) {
    for (const PPDStatement &statement : StatementsOf(lines)) {
      const std::string_view option = OptionOpenedBy(statement);
      if (!option.empty()) making.of_filters.emplace(option);
    }
  }
}

// Pages that are sent as documents are laid out again; with the paper that they have they stay as
// they are.
JobOptions AsDocument(const PPDFile &ppd) {
  JobOptions options = {{"document-format", kPdf}};
  const std::string paper = ppd.DefaultChoice("PageSize");
  if (!paper.empty()) options["media"] = paper;
  return options;
}

// Another print server takes documents alone.
JobOptions SentWith(const PPDFile &ppd) {
  if (LeavesLayoutToOthers(ppd)) return AsDocument(ppd);
  return {{"document-format", kLaidOutPdf}};
}

// Of a job of several files, as banners make it, the server drops those on which no program works.
JobOptions SentWithBanners(const PPDFile &ppd) {
  return PassesPagesOn(ppd) ? AsDocument(ppd) : SentWith(ppd);
}

Expected<void> CheckTakes(const std::string &format, const std::set<std::string> &formats) {
  if (formats.contains(format)) return {};
  return Failure{Localized("its print server does not take documents of the type %1", {format})};
}

// The PPD file with the bundle's options.
Expected<PPDFile> Extended(const PPDFile &ppd, const PrinterOptions &options) {
  Expected<std::string> text = AddDocumentOptions(ppd.source(), options);
  if (!text) return text.failure();
  return ParsePPD(*text);
}

// Those that the extended file has more, with their defaults.
JobOptions Added(const PPDFile &before, const PPDFile &after) {
  JobOptions added;
  for (const std::string &keyword : after.OptionKeywords()) {
    if (!before.HasOption(keyword)) added[keyword] = after.DefaultChoice(keyword);
  }
  return added;
}

Expected<void> ApplyHere(QueueAbility &ability, const PrinterOptions &options,
                         const std::set<std::string> &formats) {
  const DocumentFilter filter = FilterOf(options);
  JobOptions sent_with = SentWith(*ability.ppd);
  if (auto takes = CheckTakes(sent_with["document-format"], formats); !takes) return takes;
  if (auto programs = CheckPrograms(filter); !programs) return programs;
  Expected<PPDFile> extended = Extended(*ability.ppd, options);
  if (!extended) return extended.failure();
  if (!ability.here) ability.here.emplace();
  ability.here->ppd = extended->source();
  ability.here->sent_with = std::move(sent_with);
  ability.here->sent_with_banners = SentWithBanners(*ability.ppd);
  ability.here->filters.push_back(filter);
  AddFilter(options, ability.making);
  ability.here->defaults.merge(Added(*ability.ppd, *extended));
  ability.ppd = std::move(*extended);
  ability.applications.push_back({options.name, Application::By::kThisComputer});
  return {};
}

// Where the bundle's options are applied.
Expected<void> Place(QueueAbility &ability, const ExtensionBundle &bundle,
                     const DocumentFormats &formats) {
  Expected<std::optional<PrinterOptions>> options = PrinterOptionsOf(bundle);
  if (!options) return options.failure();
  if (!*options) return {};
  const AppliedBy by = WhoApplies(*ability.ppd, **options);
  if (by != AppliedBy::kNobody) {
    ability.applications.push_back({(*options)->name, by == AppliedBy::kPrinter
                                                          ? Application::By::kPrinter
                                                          : Application::By::kServer});
    if (!(*options)->document_filter.empty()) AddFilter(**options, ability.making);
    return {};
  }
  if (!formats || (*options)->document_filter.empty()) return {};
  return ApplyHere(ability, **options, *formats);
}

}  // namespace

QueueAbility AbilityOf(std::optional<PPDFile> ppd, const DocumentFormats &formats,
                       const Extensions &extensions) {
  QueueAbility ability;
  ability.ppd = std::move(ppd);
  if (!ability.ppd) return ability;
  for (const ExtensionBundle &bundle : extensions.bundles()) {
    if (auto placed = Place(ability, bundle, formats); !placed) {
      ability.why_not_here += (ability.why_not_here.empty() ? "" : "; ") + placed.message();
    }
  }
  ability.making.ppd = ability.ppd->source();
  return ability;
}

std::string WithReason(const std::string &reason, const std::string &why_not_here) {
  if (why_not_here.empty()) return reason;
  return Localized("%1; nor can it be done on this computer: %2", {reason, why_not_here});
}
