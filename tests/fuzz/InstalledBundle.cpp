#include "tests/fuzz/InstalledBundle.h"

namespace fs = std::filesystem;

namespace fuzz {

fs::path InstallBundle(const fs::path &folder) {
  fs::path bundle = folder / "BackgroundNumbering.plugin";
  fs::create_directories(bundle);
  fs::copy_file(EMPTY_LIBRARY, bundle / "BackgroundNumbering");
  fs::create_directory_symlink(BINARY_DIRECTORY "/BackgroundNumbering.plugin/Resources",
                               bundle / "Resources");
  return bundle;
}

}  // namespace fuzz
