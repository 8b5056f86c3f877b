#include "host/cups/PPDFile.h"

#include <cerrno>
#include <cstring>
#include <system_error>

Expected<PPDFile> PPDFile::Open(const std::filesystem::path &path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found) return Failure{"no such file"};
  if (error) return Failure{error.message()};
  // A pipe or a device might never end.
  if (!std::filesystem::is_regular_file(status)) return Failure{"not a regular file"};

  errno = 0;
  if (ppd_file_t *ppd = ppdOpenFile(path.c_str())) return PPDFile(ppd);
  const int system_error = errno;
  int line = 0;
  const ppd_status_t reason = ppdLastError(&line);
  std::string message = ppdErrorString(reason);
  if (reason == PPD_FILE_OPEN_ERROR && system_error != 0) {
    message += std::string(": ") + std::strerror(system_error);
  } else if (line > 0) {
    message += " on line " + std::to_string(line);
  }
  return Failure{message};
}

std::optional<std::string> PPDFile::Attribute(const std::string &keyword) const {
  const ppd_attr_t *attribute = ppdFindAttr(ppd_.get(), keyword.c_str(), nullptr);
  if (attribute == nullptr || attribute->value == nullptr) return std::nullopt;
  return attribute->value;
}

bool PPDFile::IsColorDevice() const { return Attribute("ColorDevice") == "True"; }
