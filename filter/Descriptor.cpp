#include "filter/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr size_t kChunk = 1 << 18;

// Without the bytes' passing through here, where one of the two is a pipe. False: not between these
// two; nothing is lost.
bool Splice(int in, int out, bool &done) {
  for (;;) {
    const ssize_t moved = splice(in, nullptr, out, nullptr, kChunk, 0);
    if (moved == 0) return done = true;
    if (moved < 0 && errno != EINTR) return errno != EINVAL && errno != ENOSYS && errno != EBADF;
  }
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

Descriptor &Descriptor::operator=(Descriptor &&other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

int Descriptor::Release() { return std::exchange(number_, -1); }

Descriptor TemporaryFile() {
  const char *folder = std::getenv("TMPDIR");
  std::string name = folder != nullptr && *folder != '\0' ? folder : "/tmp";
  name += "/backgroundnumbers.XXXXXX";
  Descriptor file(mkostemp(name.data(), O_CLOEXEC));
  if (file.IsOpen()) unlink(name.c_str());
  return file;
}

bool WriteAll(int out, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(out, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

bool CopyAll(int in, int out) {
  bool done = false;
  if (Splice(in, out, done)) return done;
  std::vector<char> buffer(kChunk);
  for (;;) {
    const ssize_t got = read(in, buffer.data(), buffer.size());
    if (got == 0) return true;
    if (got < 0 && errno != EINTR) return false;
    if (got > 0 && !WriteAll(out, {buffer.data(), static_cast<size_t>(got)})) return false;
  }
}

std::string SystemReason() { return std::strerror(errno); }
