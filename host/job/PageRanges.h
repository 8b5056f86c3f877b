// Which pages of a job are printed, and how often.
//
// By hand: libcups makes a range of whatever is written, and a job of other pages comes out.

#ifndef HOST_JOB_PAGERANGES_H
#define HOST_JOB_PAGERANGES_H

#include <string>
#include <string_view>

#include "host/base/Expected.h"

// The value of the job option page-ranges for what a person typed, such as "1-3, 5, 8-": ranges in
// rising order without overlap, "1-3,5,8-2147483647", which is the last page that the protocol
// knows. Empty for nothing but blanks: all pages. The failure says what is wrong and gives an
// example.
Expected<std::string> ParsePageRanges(std::string_view text);

// What a person would have typed for the value: "8-" instead of the last page that there can be,
// and nothing for all pages. What ParsePageRanges would not answer stays as it is.
std::string TypedPageRanges(const std::string &value);

// The value that prints all pages where the queue's default is fewer.
std::string AllPages();

// The value of the job option copies for what a person typed: a whole number from 1 to 9999, which
// print servers take unless they are told otherwise (MaxCopies).
Expected<std::string> ParseCopies(std::string_view text);

#endif
