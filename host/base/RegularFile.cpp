#include "host/base/RegularFile.h"

#include <system_error>

#include "host/base/Localized.h"

namespace fs = std::filesystem;

Expected<void> CheckRegularFile(const fs::path &path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return Failure{Localized("no such file")};
  if (error) return Failure{error.message()};
  if (!fs::is_regular_file(status)) return Failure{Localized("not a regular file")};
  return {};
}
