#include "host/pages/PrivateFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "host/base/Localized.h"

namespace {

std::string Place() {
  const char *folder = std::getenv("TMPDIR");
  return folder != nullptr && *folder == '/' ? folder : "/tmp";
}

// 0, or the reason in the system's numbers.
int TryToWrite(const std::filesystem::path &path) {
  constexpr size_t kSome = 1 << 16;
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (file < 0) return errno;
  const std::vector<char> bytes(kSome);
  errno = 0;
  const bool is_written = write(file, bytes.data(), kSome) == static_cast<ssize_t>(kSome);
  const int reason = is_written ? 0 : errno == 0 ? ENOSPC : errno;
  close(file);
  unlink(path.c_str());
  return reason;
}

}  // namespace

Expected<PrivateFolder> PrivateFolder::Make() {
  std::string name = Place() + "/pdeprint.XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    return Failure{
        Localized("no folder can be made in %1: %2; TMPDIR names another place for temporary files",
                  {Place(), std::strerror(errno)})};
  }
  return PrivateFolder(name);
}

PrivateFolder::PrivateFolder(PrivateFolder &&other) noexcept
    : path_(std::exchange(other.path_, {})) {}

PrivateFolder::~PrivateFolder() {
  std::error_code error;
  if (!path_.empty()) std::filesystem::remove_all(path_, error);
}

Expected<void> PrivateFolder::CheckRoom() const {
  const int reason = TryToWrite(path_ / "room");
  if (reason == 0) return {};
  return Failure{
      Localized("there is no room in %1: %2; TMPDIR names another place for temporary files",
                {path_.parent_path().string(), std::strerror(reason)})};
}
