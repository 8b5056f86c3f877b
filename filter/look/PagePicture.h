// A page as it would cover what is behind it.

#ifndef FILTER_LOOK_PAGEPICTURE_H
#define FILTER_LOOK_PAGEPICTURE_H

#include <string>

namespace poppler {
class page;
}

// Whether the page would hide its number, of this size (of numbering::kSizes), if it were behind.
bool HidesNumber(const poppler::page &page, const std::string &digits, double size);

#endif
