#include "host/job/CommonOptions.h"

#include <strings.h>

#include <algorithm>
#include <initializer_list>

namespace {

constexpr std::string_view kNames[] = {"collate",
                                       "copies",
                                       "finishings",
                                       "fit-to-page",
                                       "job-billing",
                                       "job-hold-until",
                                       "job-priority",
                                       "job-sheets",
                                       "landscape",
                                       "media",
                                       "mirror",
                                       "multiple-document-handling",
                                       "number-up",
                                       "number-up-layout",
                                       "orientation-requested",
                                       "output-bin",
                                       "outputorder",
                                       "page-border",
                                       "page-bottom",
                                       "page-left",
                                       "page-ranges",
                                       "page-right",
                                       "page-set",
                                       "page-top",
                                       "print-color-mode",
                                       "print-quality",
                                       "print-scaling",
                                       "printer-resolution",
                                       "scaling",
                                       "sides"};

// The print system's filters obey one of the names in a line, whichever they look at first.
constexpr std::initializer_list<std::string_view> kSameThings[] = {
    {"collate", "multiple-document-handling", "sheet-collate"},
    {"crop-to-fit", "fill", "fit-to-page", "fitplot", "natural-scaling", "print-scaling",
     "scaling"},
    {"landscape", "orientation-requested"},
    {"output-order", "outputorder", "page-delivery"}};

// As libcups looks for names.
bool IsSameName(std::string_view one, std::string_view other) {
  return one.size() == other.size() && strncasecmp(one.data(), other.data(), one.size()) == 0;
}

}  // namespace

bool IsCommonOption(std::string_view name) {
  return std::ranges::find(kNames, name) != std::end(kNames);
}

bool IsSameThing(std::string_view one, std::string_view other) {
  return std::ranges::any_of(kSameThings, [&](const auto &names) {
    const auto has = [&names](std::string_view name) {
      return std::ranges::any_of(names,
                                 [&](std::string_view known) { return IsSameName(known, name); });
    };
    return has(one) && has(other);
  });
}
