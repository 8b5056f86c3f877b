// Sizes of paper that people type.

#ifndef HOST_JOB_PAPERSIZE_H
#define HOST_JOB_PAPERSIZE_H

#include <string>
#include <string_view>

#include "host/base/Expected.h"
#include "host/ppd/PaperSizes.h"

// The custom choice of a page size for what a person typed, such as "210 x 297 mm", "8,5 × 11 in":
// Custom.210x297mm. Without a unit (mm, cm, in, pt) they are millimeters. The failure gives an
// example.
Expected<std::string> ParsePaperSize(std::string_view text);

// What a person would have typed for the choice; empty: it is not that of a custom size.
std::string TypedPaperSize(std::string_view choice);

// In millimeters, as a person would type it.
std::string TypedPaperSize(PaperSize size);

#endif
