// What a job says about its numbers, and which number a page has.

#ifndef NUMBERING_CHOICES_H
#define NUMBERING_CHOICES_H

#include <cstddef>
#include <string_view>

#include "numbering/Look.h"

namespace numbering {

inline constexpr int kSmallestStart = 1;
inline constexpr int kLargestStart = 999;

struct Choices {
  bool on = false;
  double size = kSizes[1].value;
  double density = kDensities[1].value;
  Ink ink = kInks[0];
  Placement placement = Placement::Automatic;
  int start = kSmallestStart;

  // Every page counts, in the order in which the pages come; only the first number ends at 999.
  size_t NumberOf(size_t page) const { return start + page; }
};

// The names under which jobs and PPD files have the choices.
inline constexpr std::string_view kOptions[] = {"VQBackgroundNumbering", "VQBNSize",
                                                "VQBNDensity",           "VQBNColor",
                                                "VQStartNumber",         "VQBNPlacement"};

// Takes over what an option says. False, with the choices as they were: it has no such keyword, or
// is none of the options. Case does not count, as in PPD files.
bool Choose(Choices &choices, std::string_view option, std::string_view keyword);

}  // namespace numbering

#endif
