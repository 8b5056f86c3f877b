#include "portal/DocumentCopy.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace {

// How many bytes came; none at the end, negative for errno.
ssize_t Read(int source, std::vector<char> &bytes) {
  for (;;) {
    const ssize_t count = read(source, bytes.data(), bytes.size());
    if (count >= 0) return count;
    if (errno == EAGAIN) {
      pollfd ready = {source, POLLIN, 0};
      poll(&ready, 1, -1);
    } else if (errno != EINTR) {
      return -1;
    }
  }
}

bool Write(int file, const char *bytes, size_t count) {
  while (count > 0) {
    const ssize_t written = write(file, bytes, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes += written;
    count -= static_cast<size_t>(written);
  }
  return true;
}

int Copy(int source, const std::filesystem::path &path, uintmax_t most) {
  constexpr size_t kAtOnce = size_t{1} << 20;
  const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (file.get() < 0) return errno;
  std::vector<char> bytes(kAtOnce);
  uintmax_t all = 0;
  for (ssize_t count; (count = Read(source, bytes)) != 0;) {
    if (count < 0) return errno;
    all += static_cast<uintmax_t>(count);
    if (all > most) return EFBIG;
    errno = ENOSPC;
    if (!Write(file.get(), bytes.data(), static_cast<size_t>(count))) return errno;
  }
  return all == 0 ? ENODATA : 0;
}

}  // namespace

Child StartCopying(const Descriptor &source, const std::filesystem::path &file, uintmax_t most) {
  return Child::Work([&] { return Copy(source.get(), file, most); });
}
