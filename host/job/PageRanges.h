// Which pages of a job are printed.

#ifndef HOST_JOB_PAGERANGES_H
#define HOST_JOB_PAGERANGES_H

#include <string>
#include <string_view>

#include "host/base/Expected.h"

// The value of the job option page-ranges for what a person typed, such as "1-3, 5, 8-": ranges in
// rising order without overlap, "1-3,5,8-9999". Empty for nothing but blanks: all pages. The
// failure says what is wrong and gives an example.
Expected<std::string> ParsePageRanges(std::string_view text);

// The value of the job option copies for what a person typed: a whole number from 1 to 9999.
Expected<std::string> ParseCopies(std::string_view text);

#endif
