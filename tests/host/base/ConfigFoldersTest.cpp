#include "host/base/ConfigFolders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/ChildProcess.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using Paths = std::vector<fs::path>;

std::string Make(const fs::path &folder) { return MessageOf(MakePrivateFolder(folder)); }

mode_t PermissionsOf(const fs::path &path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

}  // namespace

TEST(ConfigFolders, UserConfigFolderIsXdgConfigHome) {
  EnvironmentVariable home("HOME", "/home/me");
  EnvironmentVariable config("XDG_CONFIG_HOME", "/far/config");
  EXPECT_EQ("/far/config", UserConfigFolder());
}

TEST(ConfigFolders, UserConfigFolderIsBelowHomeWithoutAnAbsoluteXdgConfigHome) {
  EnvironmentVariable home("HOME", "/home/me");
  using Value = std::optional<std::string>;
  for (const Value &value : {Value(), Value(""), Value("relative/config")}) {
    EnvironmentVariable config("XDG_CONFIG_HOME", value);
    EXPECT_EQ("/home/me/.config", UserConfigFolder()) << value.value_or("(not set)");
  }
}

TEST(ConfigFolders, UserConfigFolderIsBelowThePasswordDatabasesHomeWithoutHome) {
  EnvironmentVariable config("XDG_CONFIG_HOME", std::nullopt);
  const passwd *user = getpwuid(geteuid());
  ASSERT_NE(nullptr, user);
  using Value = std::optional<std::string>;
  for (const Value &value : {Value(), Value(""), Value("relative")}) {
    EnvironmentVariable home("HOME", value);
    EXPECT_EQ(fs::path(user->pw_dir) / ".config", UserConfigFolder()) << value.value_or("(none)");
  }
}

TEST(ConfigFolders, SystemConfigFoldersAreThoseOfXdgConfigDirs) {
  EnvironmentVariable folders("XDG_CONFIG_DIRS", "/first::relative:/second/a b:/third");
  EXPECT_EQ((Paths{"/first", "/second/a b", "/third"}), SystemConfigFolders());
}

TEST(ConfigFolders, SystemConfigFolderIsEtcXdgWithoutXdgConfigDirs) {
  using Value = std::optional<std::string>;
  for (const Value &value : {Value(), Value("")}) {
    EnvironmentVariable folders("XDG_CONFIG_DIRS", value);
    EXPECT_EQ(Paths{"/etc/xdg"}, SystemConfigFolders());
  }
}

TEST(ConfigFolders, MakesAllMissingFoldersForTheUserAlone) {
  TemporaryFolder folder;
  ASSERT_EQ(0, chmod(folder.path().c_str(), 0755));
  EXPECT_EQ("", Make(folder.path() / "a/b/c"));
  for (const char *made : {"a", "a/b", "a/b/c"}) {
    EXPECT_EQ(0700u, PermissionsOf(folder.path() / made)) << made;
  }
  EXPECT_EQ(0755u, PermissionsOf(folder.path()));
}

TEST(ConfigFolders, LeavesAFolderThatIsThereAsItIs) {
  TemporaryFolder folder;
  ASSERT_EQ(0, chmod(folder.path().c_str(), 0755));
  EXPECT_EQ("", Make(folder.path()));
  EXPECT_EQ(0755u, PermissionsOf(folder.path()));
}

TEST(ConfigFolders, MakesFoldersBehindALink) {
  TemporaryFolder folder;
  fs::create_directory(folder.path() / "far");
  fs::create_directory_symlink("far", folder.path() / "near");
  EXPECT_EQ("", Make(folder.path() / "near/a"));
  EXPECT_TRUE(fs::is_directory(folder.path() / "far/a"));
}

TEST(ConfigFolders, SaysWhichFileIsInTheWayOfAFolder) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("a", "old");
  EXPECT_EQ("cannot make the folder " + file.string() + ": File exists", Make(file / "b"));
  EXPECT_EQ("cannot make the folder " + file.string() + ": File exists", Make(file));
  EXPECT_EQ("old", ContentOf(file));
}

TEST(ConfigFolders, SaysWhichFolderCannotBeMade) {
  TemporaryFolder folder;
  const fs::path locked = folder.path() / "locked";
  fs::create_directory(locked);
  ASSERT_EQ(0, chmod(locked.c_str(), 0555));
  const std::string message = InChild([&locked]() -> std::string {
    return LosePrivileges() ? Make(locked / "a" / "b") : "(still privileged)";
  });
  EXPECT_EQ("cannot make the folder " + (locked / "a").string() + ": Permission denied", message);
}
