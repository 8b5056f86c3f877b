// What can be read to its end.

#ifndef HOST_BASE_REGULARFILE_H
#define HOST_BASE_REGULARFILE_H

#include <filesystem>

#include "host/base/Expected.h"

// That the path, after all links, is a regular file, which need not be readable: a pipe or a device
// might never end. The failure is a clause, without the path.
Expected<void> CheckRegularFile(const std::filesystem::path &path);

#endif
