// What `cmake --install` puts below a prefix.

#ifndef TESTS_INSTALL_INSTALLEDTREE_H
#define TESTS_INSTALL_INSTALLEDTREE_H

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/RunProgram.h"

// The build tree that this program belongs to, installed in a temporary folder.
class InstalledTree {
 public:
  // With these arguments of `cmake --install` besides the prefix.
  explicit InstalledTree(const std::vector<std::string> &arguments = {});

  std::filesystem::path prefix() const { return prefix_; }
  // All files and links below the prefix, by their names from there, sorted.
  std::vector<std::string> Files() const;
  // The whole tree goes to another place.
  void Move();

 private:
  TemporaryFolder folder_;
  std::filesystem::path prefix_;
};

// Installs with the shell's words before `cmake`, and the arguments behind the build tree; a
// failure is the test's.
void Install(const std::string &before, const std::vector<std::string> &arguments);

std::vector<std::string> FilesBelow(const std::filesystem::path &folder);

bool IsBinary(const std::filesystem::path &file);

#endif
