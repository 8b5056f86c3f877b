#include "host/job/JobFiles.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/base/Localized.h"
#include "host/base/Utf8.h"

namespace fs = std::filesystem;

Expected<void> CheckFile(const fs::path &file) {
  const auto failure = [&file](const std::string &why) {
    return Failure{Localized("cannot print %1: %2", {file.string(), why})};
  };
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (status.type() == fs::file_type::not_found) return failure(Localized("no such file"));
  if (error) return failure(error.message());
  if (fs::is_directory(status)) return failure(Localized("it is a folder"));
  if (!fs::is_regular_file(status)) return failure(Localized("not a regular file"));
  if (access(file.c_str(), R_OK) != 0) return failure(std::strerror(errno));
  if (fs::file_size(file, error) == 0) return failure(Localized("the file is empty"));
  return {};
}

Expected<void> CheckFiles(const std::vector<fs::path> &files) {
  for (const fs::path &file : files) {
    if (auto checked = CheckFile(file); !checked) return checked;
  }
  return {};
}

std::string TitleOfJob(const std::vector<fs::path> &files) {
  if (files.empty()) return "";
  std::string first = ToUtf8(files.front().filename().string());
  if (files.size() == 1) return first;
  return LocalizedCount("%1 and %2 more", {first}, files.size() - 1);
}
