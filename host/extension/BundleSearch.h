// Where extension bundles are found.

#ifndef HOST_EXTENSION_BUNDLESEARCH_H
#define HOST_EXTENSION_BUNDLESEARCH_H

#include <filesystem>

#include "host/base/Expected.h"

// The bundle to load: the one named, if any; else the first *.plugin beside this program (the build
// tree), else in ../lib/GNUstep/Bundles from there (where it is installed).
Expected<std::filesystem::path> FindBundle(const std::filesystem::path &named);

#endif
