// A folder for temporary files.

#ifndef HOST_PAGES_PRIVATEFOLDER_H
#define HOST_PAGES_PRIVATEFOLDER_H

#include <filesystem>
#include <string>

#include "host/base/Expected.h"

// Nobody else can look into it; it goes with the object, and all that is in it.
class PrivateFolder {
 public:
  // In the folder TMPDIR, or /tmp.
  static Expected<PrivateFolder> Make();

  PrivateFolder(PrivateFolder &&other) noexcept;
  PrivateFolder &operator=(PrivateFolder &&other) = delete;
  ~PrivateFolder();

  const std::filesystem::path &path() const { return path_; }

  // That there is still some room. What programs say who find none is no word for people.
  Expected<void> CheckRoom() const;

 private:
  explicit PrivateFolder(std::filesystem::path path) : path_(std::move(path)) {}

  std::filesystem::path path_;  // empty: moved away
};

#endif
