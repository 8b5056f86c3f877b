// Extension bundles made by tests.

#ifndef TESTS_HOST_EXTENSION_BUNDLEFOLDER_H
#define TESTS_HOST_EXTENSION_BUNDLEFOLDER_H

#include <filesystem>
#include <string>

#include "tests/support/TemporaryFolder.h"

// A folder Test.plugin with an Info.plist, to which tests add what they need.
class BundleFolder {
 public:
  // The entries are an old-style property list's, such as "NSExecutable = Test;".
  explicit BundleFolder(const std::string &info_entries);

  const std::filesystem::path &path() const { return path_; }

  // Adds the executable that the entry "NSExecutable = Test;" names.
  void AddLibrary() const;
  // Adds any file below the bundle's folder.
  void Add(const std::filesystem::path &name, const std::string &content) const;

 private:
  TemporaryFolder folder_;
  std::filesystem::path path_;
};

#endif
