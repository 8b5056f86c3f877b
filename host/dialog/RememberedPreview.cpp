#include "host/dialog/RememberedPreview.h"

#include <filesystem>
#include <fstream>

#include "host/base/ConfigFolders.h"

namespace fs = std::filesystem;

namespace {

// There where it is not wanted; empty: the user has no home.
fs::path Mark() {
  const fs::path folder = UserConfigFolder();
  return folder.empty() ? folder : folder / "pdeprint" / "preview-hidden";
}

}  // namespace

bool WantsPreview() {
  const fs::path mark = Mark();
  std::error_code error;
  return mark.empty() || !fs::exists(mark, error);
}

void RememberPreview(bool wanted) {
  const fs::path mark = Mark();
  if (mark.empty()) return;
  std::error_code error;
  if (wanted) {
    fs::remove(mark, error);
  } else if (MakePrivateFolder(mark.parent_path())) {
    std::ofstream{mark};
  }
}
