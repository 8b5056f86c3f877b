#include "host/pages/Programs.h"

#include <unistd.h>

#include <vector>

#include "host/base/Localized.h"
#include "host/chain/ServerFolders.h"

namespace fs = std::filesystem;

namespace {

constexpr char kFiltersPackage[] = "cups-filters";

bool IsProgram(const fs::path &path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

fs::path Here() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path();
}

Expected<fs::path> FirstOf(const std::vector<fs::path> &candidates, const std::string &package) {
  for (const fs::path &candidate : candidates) {
    if (IsProgram(candidate)) return candidate;
  }
  const std::string name = candidates.front().filename().string();
  if (package.empty()) return Failure{Localized("the program %1 is not there", {name})};
  return Failure{Localized("the program %1 is not there; install the package %2", {name, package})};
}

Expected<fs::path> Helper(const std::string &name) {
  return FirstOf({Here() / name, (Here() / "../libexec" / name).lexically_normal()}, "pdeprint");
}

}  // namespace

Expected<fs::path> SystemFilter(const std::string &name) {
  return FirstOf({FindServerFolders().FilterAt(name)}, kFiltersPackage);
}

Expected<fs::path> ProgramOf(const DocumentFilter &filter) {
  return FirstOf(
      {Here() / filter.program, (Here() / "../lib/cups/filter" / filter.program).lexically_normal(),
       FindServerFolders().FilterAt(filter.program)},
      filter.package);
}

Expected<fs::path> PdfHelper() { return Helper("pdeprint-pages"); }

Expected<fs::path> PictureHelper() { return Helper("pdeprint-picture"); }

Expected<void> CheckPrograms(const DocumentFilter &filter) {
  if (auto path = SystemFilter("pdftopdf"); !path) return path.failure();
  if (auto path = ProgramOf(filter); !path) return path.failure();
  if (auto path = PdfHelper(); !path) return path.failure();
  return {};
}
