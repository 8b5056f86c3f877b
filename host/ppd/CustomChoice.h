// Choices that a PPD file does not list: values within the limits that it gives.

#ifndef HOST_PPD_CUSTOMCHOICE_H
#define HOST_PPD_CUSTOMCHOICE_H

#include <cups/ppd.h>

#include <string_view>

// The choice that libcups adds to an option for custom values. A choice of this name that is in the
// file itself it calls _Custom.
inline constexpr char kCustomChoice[] = "Custom";

// Whether it is written as a custom value: Custom.VALUE, or {NAME=VALUE ...}.
bool IsCustomChoice(std::string_view choice);
// Whether libcups takes it for one; it does not look at the case of letters.
bool MayBeTakenForCustomChoice(std::string_view choice);

// Whether the option takes this choice, if it is written as a custom value: for page sizes
// Custom.WIDTHxHEIGHT with a unit or in points, for other options what the type of the first
// parameter asks for, within the limits; in braces what its parameters ask for, by their names. A
// text must be one that libcups can send so that it stays a text: without backslashes, and, where
// it is not sent as PostScript, without control characters, quotation marks, brackets, slashes and
// percent signs.
bool AllowsCustomChoice(const ppd_file_t &ppd, const ppd_option_t &option, std::string_view choice);

#endif
