// Job options by name, as the print system takes them.

#ifndef HOST_BASE_JOBOPTIONS_H
#define HOST_BASE_JOBOPTIONS_H

#include <map>
#include <string>

using JobOptions = std::map<std::string, std::string>;

#endif
