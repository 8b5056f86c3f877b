// A folder that goes with the object.

#ifndef TESTS_SUPPORT_TEMPORARYFOLDER_H
#define TESTS_SUPPORT_TEMPORARYFOLDER_H

#include <filesystem>
#include <string>
#include <string_view>

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder &) = delete;
  TemporaryFolder &operator=(const TemporaryFolder &) = delete;

  const std::filesystem::path &path() const { return path_; }

  // Writes a file below the folder, making folders on the way, and answers its path.
  std::filesystem::path Write(const std::filesystem::path &name, std::string_view content) const;

 private:
  std::filesystem::path path_;
};

// The whole content of a file, "" where there is none.
std::string ContentOf(const std::filesystem::path &file);

#endif
