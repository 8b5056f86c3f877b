// Writing a file whole or not at all.

#ifndef HOST_BASE_WHOLEFILE_H
#define HOST_BASE_WHOLEFILE_H

#include <filesystem>
#include <optional>
#include <string_view>

#include "host/base/Expected.h"

enum class Existing { kReplaced, kKept };

// Replaces the file, or makes it, with these bytes. At any moment, also after a crash, the path
// leads to the old bytes or to the new ones. A link is followed, permissions are kept. On failure
// the old file is untouched. A writer that is killed may leave a file .pdeprint.XXXXXX beside it;
// nothing deletes those, because another program may be writing one. The failure names the path, or
// another one that the user knows; also, where what is there is kept, that something is.
Expected<void> WriteWholeFile(const std::filesystem::path &path, std::string_view bytes);
Expected<void> WriteWholeFile(const std::filesystem::path &path, std::string_view bytes,
                              const std::filesystem::path &named,
                              Existing existing = Existing::kReplaced);

#endif
