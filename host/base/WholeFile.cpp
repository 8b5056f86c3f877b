#include "host/base/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <ios>
#include <string>

#include "host/base/Localized.h"
#include "host/base/MoveFile.h"

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
std::filesystem::path Destination(std::filesystem::path path, std::error_code &error) {
  for (int links = 0; std::filesystem::is_symlink(path, error); ++links) {
    if (links == 40) {
      error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
      break;
    }
    // As behind /dev/stdout: a file that is open, and goes on being written under no name.
    std::filesystem::path folder = weakly_canonical(path.parent_path(), error);
    if (folder.string().starts_with("/proc/")) return folder;
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  }
  return path;
}

// The system's own call answers the mask only in exchange for another one, with which a file might
// be made on another thread in between.
mode_t CreationMask() {
  std::ifstream status("/proc/self/status");
  for (std::string field; status >> field;) {
    mode_t mask = 0;
    if (field == "Umask:" && status >> std::oct >> mask) return mask;
  }
  return 077;
}

// Owner and permissions as the old file had them, or as a new one gets them.
bool TakeAttributes(int descriptor, const std::filesystem::path &destination) {
  struct stat old = {};
  if (stat(destination.c_str(), &old) == 0) {
    // Only root can give a file away; anybody else owns the new file, which is no reason to fail.
    (void)!fchown(descriptor, old.st_uid, old.st_gid);
    return fchmod(descriptor, old.st_mode & 07777) == 0;
  }
  return fchmod(descriptor, 0666 & ~CreationMask()) == 0;
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

bool GiveName(const std::filesystem::path &temporary, const std::filesystem::path &name,
              Existing existing) {
  if (existing == Existing::kReplaced) return rename(temporary.c_str(), name.c_str()) == 0;
  const std::error_code error = MoveWithoutReplacing(temporary, name);
  errno = error.value();
  return !error;
}

}  // namespace

Expected<void> WriteWholeFile(const std::filesystem::path &path, std::string_view bytes) {
  return WriteWholeFile(path, bytes, path);
}

Expected<void> WriteWholeFile(const std::filesystem::path &path, std::string_view bytes,
                              const std::filesystem::path &named, Existing existing) {
  const auto failure = [&named](const std::string &why) {
    return Failure{Localized("cannot write %1: %2", {named.string(), why})};
  };
  std::error_code error;
  const std::filesystem::path destination = Destination(path, error);
  if (error == std::errc::too_many_symbolic_link_levels) {
    return failure(error.message());
  }
  if (std::filesystem::exists(destination, error) &&
      !std::filesystem::is_regular_file(destination, error)) {
    return failure(Localized("not a regular file"));
  }

  // A name of its own: the longest names have no room for an ending.
  std::string temporary = (destination.parent_path() / ".pdeprint.XXXXXX").string();
  Descriptor file(mkostemp(temporary.data(), O_CLOEXEC));
  if (file.get() < 0) return failure(std::strerror(errno));
  if (!WriteAll(file.get(), bytes) || !TakeAttributes(file.get(), destination) ||
      fsync(file.get()) != 0 || !file.Close() || !GiveName(temporary, destination, existing)) {
    const Failure reason = failure(std::strerror(errno));
    unlink(temporary.c_str());
    return reason;
  }
  // The new name survives a crash once the folder is on disk; that it may fail to sync loses
  // nothing.
  const std::filesystem::path folder =
      destination.has_parent_path() ? destination.parent_path() : ".";
  Descriptor directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.get() >= 0) fsync(directory.get());
  return {};
}
