#include "host/extension/BundleSearch.h"

#include <algorithm>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> BundlesIn(const fs::path &folder) {
  std::vector<fs::path> bundles;
  std::error_code error;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".plugin" && entry.is_directory(error)) {
      bundles.push_back(entry.path());
    }
  }
  std::sort(bundles.begin(), bundles.end());
  return bundles;
}

}  // namespace

Expected<fs::path> FindBundle(const fs::path &named) {
  std::error_code error;
  if (!named.empty()) {
    if (fs::is_directory(named, error)) return fs::absolute(named, error);
    return Failure{"no bundle at " + named.string()};
  }
  const fs::path here = fs::read_symlink("/proc/self/exe", error).parent_path();
  const fs::path installed = (here / "../lib/GNUstep/Bundles").lexically_normal();
  for (const fs::path &folder : {here, installed}) {
    const std::vector<fs::path> bundles = BundlesIn(folder);
    if (!bundles.empty()) return bundles.front();
  }
  return Failure{"no extension bundle (*.plugin) in " + here.string() + " or " +
                 installed.string() + "; name one with --plugin"};
}
