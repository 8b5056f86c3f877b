#include "host/base/ConfigFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "host/base/Localized.h"

namespace fs = std::filesystem;

namespace {

std::string Variable(const char *name) {
  const char *value = std::getenv(name);
  return value == nullptr ? "" : value;
}

fs::path HomeFolder() {
  if (fs::path home = Variable("HOME"); home.is_absolute()) return home;
  const passwd *user = getpwuid(geteuid());
  if (user == nullptr || user->pw_dir == nullptr) return {};
  fs::path home = user->pw_dir;
  return home.is_absolute() ? home : fs::path();
}

}  // namespace

fs::path UserConfigFolder() {
  if (fs::path folder = Variable("XDG_CONFIG_HOME"); folder.is_absolute()) return folder;
  const fs::path home = HomeFolder();
  return home.empty() ? home : home / ".config";
}

std::vector<fs::path> SystemConfigFolders() {
  const std::string list = Variable("XDG_CONFIG_DIRS");
  if (list.empty()) return {"/etc/xdg"};
  std::vector<fs::path> folders;
  std::istringstream paths(list);
  for (std::string path; std::getline(paths, path, ':');) {
    if (fs::path(path).is_absolute()) folders.emplace_back(path);
  }
  return folders;
}

Expected<void> MakePrivateFolder(const fs::path &folder) {
  fs::path made;
  for (const fs::path &part : folder) {
    made /= part;
    if (mkdir(made.c_str(), 0700) == 0) continue;
    const int reason = errno;
    // It may have been there, or another program may have made it at the same time.
    std::error_code error;
    if (fs::is_directory(made, error)) continue;
    return Failure{
        Localized("cannot make the folder %1: %2", {made.string(), std::strerror(reason)})};
  }
  return {};
}
