#include "host/chain/FilterProgram.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "host/base/Localized.h"

namespace {

bool IsOthersToChange(const struct stat &status) {
  const bool is_private = std::getenv("CUPS_SERVERBIN") != nullptr;
  const bool is_owned = status.st_uid == 0 || (is_private && status.st_uid == geteuid());
  return !is_owned || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

}  // namespace

Expected<void> CheckFilterProgram(const ServerFolders &folders, const std::string &name) {
  const std::filesystem::path path = folders.FilterAt(name);
  struct stat program = {}, folder = {};
  if (stat(path.c_str(), &program) != 0) {
    return Failure{Localized("the print server has no filter %1 (%2); install it first",
                             {name, path.string()})};
  }
  constexpr mode_t kForAll = S_IXUSR | S_IRGRP | S_IXGRP | S_IROTH | S_IXOTH;
  const bool runs = S_ISREG(program.st_mode) && (program.st_mode & kForAll) == kForAll &&
                    (program.st_mode & (S_ISUID | S_ISGID)) == 0 && !IsOthersToChange(program);
  const bool is_safe = stat(path.parent_path().c_str(), &folder) == 0 && !IsOthersToChange(folder);
  if (runs && is_safe) return {};
  return Failure{
      Localized("the print server does not run %1: it and its folder must belong to root, with the "
                "mode 755",
                {path.string()})};
}
