// Print settings written in lines, "NAME KIND TEXT": the name of a setting (Valid, Size, Density,
// Color, StartNumber), or any other key; string, integer, real, boolean, data, date, array,
// dictionary, null or huge; and a text from which the value is made. The last of several lines for
// one name counts.

#ifndef TESTS_FUZZ_STOREDVALUES_H
#define TESTS_FUZZ_STOREDVALUES_H

#import <Foundation/Foundation.h>

#include <string_view>

namespace fuzz {

// By print-settings key.
NSDictionary *StoredValues(std::string_view lines);

}  // namespace fuzz

#endif
