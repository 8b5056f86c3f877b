// Giving printer options their place in the order of a PPD file.

#ifndef HOST_PPD_EDIT_OPTIONORDER_H
#define HOST_PPD_EDIT_OPTIONORDER_H

#include <string>
#include <string_view>

#include "host/base/Expected.h"

// The lines, each ending with LF, with their order numbers raised by the same whole number, as
// little as makes them all greater than those of the PPD file. The failure: there is no room for
// greater ones.
Expected<std::string> OrderedAfter(std::string_view ppd, std::string_view lines);

#endif
