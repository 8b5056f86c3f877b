#include "host/extension/BundleSearch.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> BundlesInFolder(const fs::path &folder) {
  std::vector<fs::path> bundles;
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code no_folder;
    if (entry->path().extension() == ".plugin" && entry->is_directory(no_folder)) {
      bundles.push_back(entry->path());
    }
  }
  std::sort(bundles.begin(), bundles.end());
  return bundles;
}

}  // namespace

std::vector<fs::path> BundleFolders() {
  std::vector<fs::path> folders;
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  if (!error) {
    const fs::path here = program.parent_path();
    folders.push_back(here);
    folders.push_back((here / "../lib/GNUstep/Bundles").lexically_normal());
  }
  const char *home = getenv("HOME");
  if (home != nullptr && fs::path(home).is_absolute()) {
    folders.push_back(fs::path(home) / "GNUstep/Library/Bundles");
  }
  folders.emplace_back("/usr/local/lib/GNUstep/Bundles");
  folders.emplace_back("/usr/lib/GNUstep/Bundles");
  return folders;
}

std::vector<fs::path> BundlesIn(const std::vector<fs::path> &folders) {
  std::vector<fs::path> bundles;
  std::set<fs::path> seen;
  for (const fs::path &folder : folders) {
    for (const fs::path &bundle : BundlesInFolder(folder)) {
      std::error_code error;
      if (seen.insert(fs::canonical(bundle, error)).second) bundles.push_back(bundle);
    }
  }
  return bundles;
}
