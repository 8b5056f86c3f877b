#include "host/extension/BundleSearch.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

fs::path ProgramFolder() { return fs::read_symlink("/proc/self/exe").parent_path(); }
fs::path InstalledFolder() {
  return (ProgramFolder() / "../lib/GNUstep/Bundles").lexically_normal();
}

// Folders near this program, as far as they are not there already; they go with the object.
class Folders {
 public:
  ~Folders() {
    for (auto folder = made_.rbegin(); folder != made_.rend(); ++folder) fs::remove(*folder);
  }
  fs::path Make(const fs::path &folder) {
    if (fs::exists(folder)) return folder;
    Make(folder.parent_path());
    fs::create_directory(folder);
    made_.push_back(folder);
    return folder;
  }

 private:
  std::vector<fs::path> made_;
};

std::string Found(const fs::path &named = {}) {
  Expected<fs::path> found = FindBundle(named);
  return found ? found->string() : found.message();
}

}  // namespace

TEST(BundleSearch, AnswersTheBundleThatIsNamed) {
  TemporaryFolder folder;
  Folders folders;
  folders.Make(ProgramFolder() / "Beside.plugin");
  fs::create_directory(folder.path() / "Any");
  EXPECT_EQ((folder.path() / "Any").string(), Found(folder.path() / "Any"));
}

TEST(BundleSearch, MakesTheNameAbsolute) {
  TemporaryFolder folder;
  fs::create_directory(folder.path() / "Any");
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  const std::string found = Found("Any");
  fs::current_path(before);
  EXPECT_EQ((folder.path() / "Any").string(), found);
}

TEST(BundleSearch, RefusesANameThatIsNoFolder) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("file.plugin", "");
  EXPECT_EQ("no bundle at " + file.string(), Found(file));
  EXPECT_EQ("no bundle at /nowhere/x.plugin", Found("/nowhere/x.plugin"));
}

TEST(BundleSearch, SaysWhereItLookedInVain) {
  EXPECT_EQ("no extension bundle (*.plugin) in " + ProgramFolder().string() + " or " +
                InstalledFolder().string() + "; name one with --plugin",
            Found());
}

TEST(BundleSearch, TakesTheFirstBesideTheProgram) {
  Folders folders;
  folders.Make(InstalledFolder() / "A.plugin");
  folders.Make(ProgramFolder() / "C.plugin");
  folders.Make(ProgramFolder() / "B.plugin");
  folders.Make(ProgramFolder() / "A.bundle");
  EXPECT_EQ((ProgramFolder() / "B.plugin").string(), Found());
}

TEST(BundleSearch, LooksWhereBundlesAreInstalled) {
  Folders folders;
  folders.Make(InstalledFolder() / "B.plugin");
  folders.Make(InstalledFolder() / "A.plugin");
  EXPECT_EQ((InstalledFolder() / "A.plugin").string(), Found());
}

TEST(BundleSearch, PassesOverAFileWithABundlesName) {
  Folders folders;
  const fs::path file = folders.Make(InstalledFolder()) / "A.plugin";
  TemporaryFolder().Write(file, "");
  folders.Make(InstalledFolder() / "B.plugin");
  EXPECT_EQ((InstalledFolder() / "B.plugin").string(), Found());
  fs::remove(file);
}
