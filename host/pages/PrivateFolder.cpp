#include "host/pages/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "host/base/Localized.h"

namespace fs = std::filesystem;

namespace {

constexpr char kBegin[] = "pdeprint.";
// Of a folder that has it, nobody is at work in there who has not locked it.
constexpr char kInUse[] = ".in-use";

std::string Place() {
  const char *folder = std::getenv("TMPDIR");
  return folder != nullptr && *folder == '/' ? folder : "/tmp";
}

// 0, or the reason in the system's numbers.
int TryToWrite(const fs::path &path) {
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

// It has its name when it is locked. -1: others will take the folder for somebody else's.
int MarkInUse(const fs::path &folder) {
  const std::string mark = folder / kInUse, new_mark = mark + ".new";
  const int file = open(new_mark.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0) rename(new_mark.c_str(), mark.c_str());
  return file;
}

bool IsOurs(const struct stat &status) { return status.st_uid == geteuid(); }

bool IsLeft(const fs::path &folder) {
  struct stat status = {};
  if (lstat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || !IsOurs(status)) {
    return false;
  }
  const int file = open((folder / kInUse).c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (file < 0) return false;
  const bool is_left =
      fstat(file, &status) == 0 && IsOurs(status) && flock(file, LOCK_EX | LOCK_NB) == 0;
  close(file);
  return is_left;
}

void RemoveLeftFolders() {
  std::error_code error;
  for (fs::directory_iterator at(Place(), error), end; !error && at != end; at.increment(error)) {
    const fs::path folder = at->path();
    std::error_code ignored;
    if (folder.filename().string().starts_with(kBegin) && IsLeft(folder)) {
      fs::remove_all(folder, ignored);
    }
  }
}

}  // namespace

Expected<PrivateFolder> PrivateFolder::Make() {
  RemoveLeftFolders();
  std::string name = Place() + '/' + kBegin + "XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    return Failure{
        Localized("no folder can be made in %1: %2; TMPDIR names another place for temporary files",
                  {Place(), std::strerror(errno)})};
  }
  return PrivateFolder(name, MarkInUse(name));
}

PrivateFolder::PrivateFolder(PrivateFolder &&other) noexcept
    : path_(std::exchange(other.path_, {})), in_use_(std::exchange(other.in_use_, -1)) {}

PrivateFolder::~PrivateFolder() {
  std::error_code error;
  if (!path_.empty()) fs::remove_all(path_, error);
  if (in_use_ >= 0) close(in_use_);
}

Expected<void> PrivateFolder::CheckRoom() const {
  const int reason = TryToWrite(path_ / "room");
  if (reason == 0) return {};
  return Failure{
      Localized("there is no room in %1: %2; TMPDIR names another place for temporary files",
                {path_.parent_path().string(), std::strerror(reason)})};
}
