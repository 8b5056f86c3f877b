// Giving a file another name.

#ifndef HOST_BASE_MOVEFILE_H
#define HOST_BASE_MOVEFILE_H

#include <filesystem>
#include <system_error>

// Gives the file, or the link, another name in the same file system. Never replaces anything, not
// even what another program puts there at the same moment: that is std::errc::file_exists.
std::error_code MoveWithoutReplacing(const std::filesystem::path &from,
                                     const std::filesystem::path &to);

#endif
