#include "host/extension/BundleSearch.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using Paths = std::vector<fs::path>;

Paths FoldersBesideTheUsers() {
  const fs::path here = fs::read_symlink("/proc/self/exe").parent_path();
  return {here, here.parent_path() / "lib/GNUstep/Bundles", "/usr/local/lib/GNUstep/Bundles",
          "/usr/lib/GNUstep/Bundles"};
}

}  // namespace

TEST(BundleFolders, AreTheProgramsThenTheUsersThenTheSystems) {
  const EnvironmentVariable home("HOME", "/home/someone");
  Paths expected = FoldersBesideTheUsers();
  expected.insert(expected.begin() + 2, "/home/someone/GNUstep/Library/Bundles");
  EXPECT_EQ(expected, BundleFolders());
}

TEST(BundleFolders, AreFewerWithoutAHome) {
  for (const std::optional<std::string> &none :
       {std::optional<std::string>(), std::optional<std::string>(""),
        std::optional<std::string>("relative")}) {
    const EnvironmentVariable home("HOME", none);
    EXPECT_EQ(FoldersBesideTheUsers(), BundleFolders());
  }
}

TEST(BundlesIn, AreFoundByNameInEachFolder) {
  TemporaryFolder first;
  TemporaryFolder second;
  for (const char *name : {"C.plugin", "A.plugin", "B.plugin"}) {
    fs::create_directory(first.path() / name);
  }
  fs::create_directory(second.path() / "A.plugin");
  EXPECT_EQ((Paths{second.path() / "A.plugin", first.path() / "A.plugin", first.path() / "B.plugin",
                   first.path() / "C.plugin"}),
            BundlesIn({second.path(), first.path()}));
}

TEST(BundlesIn, PassesOverWhatIsNoBundle) {
  TemporaryFolder folder;
  folder.Write("File.plugin", "");
  fs::create_directory(folder.path() / "A.bundle");
  fs::create_directory(folder.path() / "plugin");
  fs::create_symlink(folder.path() / "absent", folder.path() / "Dangling.plugin");
  EXPECT_EQ(Paths(), BundlesIn({folder.path()}));
}

TEST(BundlesIn, PassesOverFoldersThatAreNotThere) {
  TemporaryFolder folder;
  fs::create_directory(folder.path() / "A.plugin");
  EXPECT_EQ(Paths{folder.path() / "A.plugin"},
            BundlesIn({"/nowhere", folder.path(), folder.path() / "absent"}));
}

TEST(BundlesIn, AnswersAPathThatIsReachedTwiceOnce) {
  TemporaryFolder folder;
  TemporaryFolder links;
  fs::create_directory(folder.path() / "A.plugin");
  fs::create_directory_symlink(folder.path() / "A.plugin", links.path() / "Other.plugin");
  fs::create_directory_symlink(folder.path(), links.path() / "all");
  EXPECT_EQ(Paths{folder.path() / "A.plugin"},
            BundlesIn({folder.path(), links.path(), links.path() / "all", folder.path()}));
}
