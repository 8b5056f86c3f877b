#include "filter/Input.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

constexpr size_t kChunk = 1 << 18;

}  // namespace

Input::~Input() {
  if (bytes_ != nullptr) munmap(const_cast<char *>(bytes_), size_);
}

std::string Input::CopySource() {
  copy_ = TemporaryFile();
  if (!copy_.IsOpen()) return "no temporary file can be made: " + SystemReason();
  for (;;) {
    pending_.resize(kChunk);
    const ssize_t got = read(source_.get(), pending_.data(), pending_.size());
    pending_.resize(got > 0 ? static_cast<size_t>(got) : 0);
    if (got == 0) return "";
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return "the document cannot be read: " + SystemReason();
    const off_t before = lseek(copy_.get(), 0, SEEK_CUR);
    if (!WriteAll(copy_.get(), pending_)) {
      std::string reason = "the temporary file cannot be written: " + SystemReason();
      (void)!ftruncate(copy_.get(), before);  // without a part of what is pending
      return reason;
    }
    pending_.clear();
  }
}

std::string Input::Load() {
  struct stat status = {};
  if (fstat(source_.get(), &status) != 0) return "the document cannot be read: " + SystemReason();
  if (!S_ISREG(status.st_mode)) {
    if (std::string reason = CopySource(); !reason.empty()) return reason;
    if (fstat(copy_.get(), &status) != 0) return SystemReason();
  }
  if (status.st_size == 0) return "there is nothing in it";
  void *memory =
      mmap(nullptr, static_cast<size_t>(status.st_size), PROT_READ, MAP_PRIVATE, file(), 0);
  if (memory == MAP_FAILED) return "the document cannot be read: " + SystemReason();
  bytes_ = static_cast<const char *>(memory);
  size_ = static_cast<size_t>(status.st_size);
  return "";
}

bool Input::PassOn(int out) {
  if (!copy_.IsOpen()) {
    lseek(source_.get(), 0, SEEK_SET);  // a pipe is where it was
    return CopyAll(source_.get(), out);
  }
  lseek(copy_.get(), 0, SEEK_SET);
  return CopyAll(copy_.get(), out) && WriteAll(out, pending_) && CopyAll(source_.get(), out);
}
