#include "host/job/CommonOptions.h"

#include <algorithm>

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
                                       "sides"};

}  // namespace

bool IsCommonOption(std::string_view name) {
  return std::ranges::find(kNames, name) != std::end(kNames);
}
