// A folder for temporary files.

#ifndef HOST_PAGES_PRIVATEFOLDER_H
#define HOST_PAGES_PRIVATEFOLDER_H

#include <filesystem>
#include <string>

#include "host/base/Expected.h"

// Nobody else can look into it; it goes with the object, and all that is in it. What a process has
// left behind that was killed goes when the next one makes a folder there.
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
  PrivateFolder(std::filesystem::path path, int in_use) : path_(std::move(path)), in_use_(in_use) {}

  std::filesystem::path path_;  // empty: moved away
  int in_use_;                  // a file in it that is locked as long as this process lives
};

#endif
