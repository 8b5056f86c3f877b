// What can be read to its end.

#ifndef HOST_BASE_REGULARFILE_H
#define HOST_BASE_REGULARFILE_H

#include <filesystem>
#include <optional>

#include "host/base/Expected.h"

// Why the path, after all links, is no regular file: a clause, without the path. A pipe or a device
// might never end. None: it is one, which need not be readable.
std::optional<Failure> ReasonNotRegularFile(const std::filesystem::path &path);

#endif
