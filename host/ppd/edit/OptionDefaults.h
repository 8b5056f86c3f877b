// Default choices of printer options.

#ifndef HOST_PPD_EDIT_OPTIONDEFAULTS_H
#define HOST_PPD_EDIT_OPTIONDEFAULTS_H

#include <string>
#include <string_view>

// The lines, each ending with LF, with the default choices of earlier ones as far as they still
// list them: a print server keeps a queue's defaults in its PPD file. Those that the earlier lines
// had from the beginning nobody has chosen.
std::string WithDefaultsOf(std::string_view earlier, std::string_view beginning,
                           std::string_view lines);

#endif
