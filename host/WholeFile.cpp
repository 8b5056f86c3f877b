#include "host/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace {

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor &) = delete;
  Descriptor &operator=(const Descriptor &) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  int get() const { return number_; }
  bool Close() { return close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

// The file that is there now, or that an open would make.
std::filesystem::path Destination(const std::filesystem::path &path) {
  std::error_code error;
  std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
  return error ? path : resolved;
}

mode_t PermissionsFor(const std::filesystem::path &destination) {
  struct stat existing = {};
  if (stat(destination.c_str(), &existing) == 0) return existing.st_mode & 07777;
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

}  // namespace

std::optional<Failure> WriteWholeFile(const std::filesystem::path &path, std::string_view bytes) {
  const auto failure = [&path] {
    return Failure{"cannot write " + path.string() + ": " + std::strerror(errno)};
  };
  const std::filesystem::path destination = Destination(path);
  std::error_code error;
  if (std::filesystem::exists(destination, error) &&
      !std::filesystem::is_regular_file(destination, error)) {
    return Failure{"cannot write " + path.string() + ": not a regular file"};
  }

  std::string temporary = destination.string() + ".XXXXXX";
  Descriptor file(mkostemp(temporary.data(), O_CLOEXEC));
  if (file.get() < 0) return failure();
  if (!WriteAll(file.get(), bytes) || fchmod(file.get(), PermissionsFor(destination)) != 0 ||
      fsync(file.get()) != 0 || !file.Close() ||
      rename(temporary.c_str(), destination.c_str()) != 0) {
    const Failure reason = failure();
    unlink(temporary.c_str());
    return reason;
  }
  // The new name survives a crash once the folder is on disk; that it may fail to sync loses
  // nothing.
  const std::filesystem::path folder =
      destination.has_parent_path() ? destination.parent_path() : ".";
  Descriptor directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.get() >= 0) fsync(directory.get());
  return std::nullopt;
}
