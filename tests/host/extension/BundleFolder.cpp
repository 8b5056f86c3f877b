#include "tests/host/extension/BundleFolder.h"

namespace fs = std::filesystem;

BundleFolder::BundleFolder(const std::string &info_entries)
    : path_(folder_.path() / "Test.plugin") {
  // NSBundle takes two bundles with one identifier for the same.
  static int number = 0;
  Add("Resources/Info-gnustep.plist", "{ CFBundleIdentifier = \"test.extension." +
                                          std::to_string(++number) + "\"; " + info_entries + " }");
}

void BundleFolder::AddLibrary() const { fs::copy_file(EMPTY_LIBRARY, path_ / "Test"); }

void BundleFolder::Add(const fs::path &name, const std::string &content) const {
  folder_.Write(path_ / name, content);
}
