#include "host/pages/PrivateFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

class PrivateFolders : public testing::Test {
 protected:
  size_t Count() const {
    const fs::directory_iterator entries(temporary_.path());
    return static_cast<size_t>(std::distance(begin(entries), end(entries)));
  }

  TemporaryFolder temporary_;
  EnvironmentVariable place_{"TMPDIR", temporary_.path().string()};
};

}  // namespace

TEST_F(PrivateFolders, GoWithTheObject) {
  {
    const Expected<PrivateFolder> folder = PrivateFolder::Make();
    ASSERT_TRUE(folder) << folder.message();
    EXPECT_EQ(fs::status(folder->path()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(Count(), 1u);
  }
  EXPECT_EQ(Count(), 0u);
}

TEST_F(PrivateFolders, OfAKilledProcessGoWithTheNext) {
  const pid_t child = fork();
  if (child == 0) {
    const Expected<PrivateFolder> folder = PrivateFolder::Make();
    (void)!symlink("/", (folder->path() / "link").c_str());
    raise(SIGKILL);
  }
  waitpid(child, nullptr, 0);
  ASSERT_EQ(Count(), 1u);
  const fs::path left = *fs::directory_iterator(temporary_.path());
  const Expected<PrivateFolder> folder = PrivateFolder::Make();
  ASSERT_TRUE(folder) << folder.message();
  EXPECT_FALSE(fs::exists(left));
  EXPECT_EQ(Count(), 1u);
}

TEST_F(PrivateFolders, InUseOrOfOthersStay) {
  temporary_.Write("pdeprint.backup/kept", "");
  const Expected<PrivateFolder> one = PrivateFolder::Make(), other = PrivateFolder::Make();
  ASSERT_TRUE(one && other);
  EXPECT_TRUE(fs::exists(one->path()));
  EXPECT_TRUE(fs::exists(other->path()));
  EXPECT_TRUE(fs::exists(temporary_.path() / "pdeprint.backup/kept"));
}
