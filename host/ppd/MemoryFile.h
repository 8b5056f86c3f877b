// A file in memory.

#ifndef HOST_PPD_MEMORYFILE_H
#define HOST_PPD_MEMORYFILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <string>

// Leaves nothing behind, however its thread ends. Less than 0: it could not be made, see errno.
class MemoryFile {
 public:
  MemoryFile() : file_(memfd_create("ppd", MFD_CLOEXEC)) {}
  ~MemoryFile() {
    if (file_ >= 0) close(file_);
  }
  MemoryFile(const MemoryFile &) = delete;
  MemoryFile &operator=(const MemoryFile &) = delete;

  int get() const { return file_; }
  std::filesystem::path path() const { return "/proc/self/fd/" + std::to_string(file_); }

 private:
  int file_;
};

#endif
