#include <strings.h>

#include <algorithm>

#include "host/base/Localized.h"
#include "host/session/panels/PanelRows.h"
#include "host/session/panels/RowChoices.h"

namespace {

constexpr char kOrder[] = "outputorder";
constexpr char kForward[] = "normal";
constexpr char kBackward[] = "reverse";
constexpr char kCopies[] = "multiple-document-handling";
constexpr char kCollated[] = "separate-documents-collated-copies";
constexpr char kUncollated[] = "separate-documents-uncollated-copies";

bool IsBackward(const std::string &value) {
  return strcasecmp(value.c_str(), kBackward) == 0 || value == "reverse-order";
}

std::string UsualOrder(const JobSession &session) {
  const PPDFile *ppd = session.ppd();
  if (ppd == nullptr) return kForward;
  return IsBackward(ppd->Attribute("DefaultOutputOrder").value_or("")) ? kBackward : kForward;
}

PanelRow OrderRow(const JobSession &session) {
  const std::string usual = UsualOrder(session);
  return {.name = kOrder,
          .caption = Localized("Printing Order"),
          .usual = usual,
          .choices = {{kForward, Localized("First Page First")},
                      {kBackward, Localized("Last Page First")}},
          .value = [usual](const JobOptions &job) -> std::string {
            for (const char *name : {kOrder, "output-order", "page-delivery"}) {
              if (job.contains(name)) return IsBackward(job.at(name)) ? kBackward : kForward;
            }
            return usual;
          }};
}

std::string OrderOfCopies(const JobOptions &job) {
  if (IsOn(job, "collate") || IsOn(job, "Collate")) return kCollated;
  if (const auto handling = job.find(kCopies); handling != job.end()) {
    return handling->second == kUncollated ? kUncollated : kCollated;
  }
  return kUncollated;
}

// A queue that lists only one of them has no choice.
std::optional<PanelRow> CopiesRow(const JobSession &session) {
  const RowChoices words = {{kUncollated, Localized("Page by Page: 1 1, 2 2, 3 3")},
                            {kCollated, Localized("Set by Set: 1 2 3, 1 2 3")}};
  RowChoices choices = OfferedChoices(session, kCopies, words);
  std::erase_if(choices, [](const PPDChoice &choice) { return choice.text == choice.keyword; });
  if (choices.size() < words.size()) return std::nullopt;
  return PanelRow{.name = kCopies,
                  .caption = Localized("Several Copies"),
                  .usual = kUncollated,
                  .choices = std::move(choices),
                  .value = OrderOfCopies};
}

}  // namespace

PanelRows PagesRows(const JobSession &session) {
  if (!LaysOutPages(session)) return {};
  PanelRows rows = {{.name = "page-set",
                     .caption = Localized("Pages to Print"),
                     .usual = "all",
                     .choices = {{"all", Localized("All Pages")},
                                 {"odd", Localized("Odd Pages Only")},
                                 {"even", Localized("Even Pages Only")}}}};
  auto order = RowOfFirst(session, {"OutputOrder"});
  rows.push_back(order ? std::move(*order) : OrderRow(session));
  auto copies = RowOfFirst(session, {"Collate"});
  if (!copies) copies = CopiesRow(session);
  if (copies) rows.push_back(std::move(*copies));
  return rows;
}
