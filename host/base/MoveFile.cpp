#include "host/base/MoveFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

std::error_code LastError() { return {errno, std::generic_category()}; }

}  // namespace

std::error_code MoveWithoutReplacing(const std::filesystem::path &from,
                                     const std::filesystem::path &to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
  if (errno != EINVAL && errno != ENOSYS) return LastError();
  // Network file systems cannot do it in one step. The file has both names for a moment.
  if (link(from.c_str(), to.c_str()) != 0) return LastError();
  if (unlink(from.c_str()) == 0) return {};
  const std::error_code error = LastError();
  unlink(to.c_str());
  return error;
}
