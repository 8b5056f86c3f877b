#include "host/base/MoveFile.h"

#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <latch>
#include <thread>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

// From here on the thread's moves in one step fail as on a network file system.
bool LoseMovesInOneStep() {
  sock_filter program[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const sock_fprog filter = {std::size(program), program};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

enum class FileSystem { kLocal, kNetwork };

class MoveFile : public testing::TestWithParam<FileSystem> {
 protected:
  static bool UseFileSystem() { return GetParam() == FileSystem::kLocal || LoseMovesInOneStep(); }
  // The message; "" on success.
  static std::string Move(const fs::path &from, const fs::path &to) {
    return InChild([&]() -> std::string {
      if (!LosePrivileges() || !UseFileSystem()) return "(the child cannot be set up)";
      const std::error_code error = MoveWithoutReplacing(from, to);
      return error ? error.message() : "";
    });
  }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(On, MoveFile, testing::Values(FileSystem::kLocal, FileSystem::kNetwork),
                         [](const auto &info) { return info.index == 0 ? "Local" : "Network"; });

TEST_P(MoveFile, GivesAFileAnotherName) {
  TemporaryFolder folder;
  const fs::path from = folder.Write("from", "content");
  const fs::path to = folder.path() / "to";
  EXPECT_EQ("", Move(from, to));
  EXPECT_FALSE(fs::exists(from));
  EXPECT_EQ("content", ContentOf(to));
}

TEST_P(MoveFile, ReplacesNothing) {
  TemporaryFolder folder;
  const fs::path from = folder.Write("from", "content");
  const fs::path file = folder.Write("file", "old");
  const fs::path empty = folder.path() / "empty";
  const fs::path link = folder.path() / "link";
  fs::create_directory(empty);
  fs::create_symlink("nowhere", link);
  for (const fs::path &to : {file, empty, link, from}) {
    EXPECT_EQ("File exists", Move(from, to)) << to;
  }
  EXPECT_EQ("content", ContentOf(from));
  EXPECT_EQ("old", ContentOf(file));
  EXPECT_TRUE(fs::is_directory(empty));
  EXPECT_TRUE(fs::is_symlink(link));
}

TEST_P(MoveFile, MovesALinkAndNotWhatItLeadsTo) {
  TemporaryFolder folder;
  folder.Write("far/target", "content");
  fs::create_symlink("far/target", folder.path() / "from");
  EXPECT_EQ("", Move(folder.path() / "from", folder.path() / "to"));
  EXPECT_FALSE(fs::is_symlink(folder.path() / "from"));
  EXPECT_EQ("far/target", fs::read_symlink(folder.path() / "to"));
  EXPECT_TRUE(fs::exists(folder.path() / "far/target"));
}

TEST_P(MoveFile, SaysThatThereIsNoSuchFile) {
  TemporaryFolder folder;
  EXPECT_EQ("No such file or directory", Move(folder.path() / "a", folder.path() / "b"));
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_P(MoveFile, LeavesAFileThatCannotBeTakenAwayItsOnlyName) {
  TemporaryFolder folder;
  const fs::path from = folder.Write("locked/from", "content");
  const fs::path to = folder.path() / "to";
  ASSERT_EQ(0, chmod(from.parent_path().c_str(), 0555));
  EXPECT_EQ("Permission denied", Move(from, to));
  ASSERT_EQ(0, chmod(from.parent_path().c_str(), 0755));
  EXPECT_TRUE(fs::exists(from));
  EXPECT_FALSE(fs::exists(to));
}

// The others keep their files.
TEST_P(MoveFile, OneOfManyAtOnceGetsTheName) {
  constexpr size_t kMovers = 4;
  for (int round = 0; round < 100; ++round) {
    TemporaryFolder folder;
    const fs::path to = folder.path() / "to";
    std::latch start(kMovers);
    std::vector<std::error_code> errors(kMovers, std::make_error_code(std::errc::io_error));
    std::vector<std::thread> movers;  // what a thread loses it loses alone
    for (size_t mover = 0; mover < kMovers; ++mover) {
      const std::string name = std::to_string(mover);
      movers.emplace_back([&, from = folder.Write(name, name), mover] {
        const bool ready = UseFileSystem();
        start.arrive_and_wait();
        if (ready) errors[mover] = MoveWithoutReplacing(from, to);
      });
    }
    for (std::thread &mover : movers) mover.join();
    EXPECT_EQ(1, std::count(errors.begin(), errors.end(), std::error_code()));
    for (size_t mover = 0; mover < kMovers; ++mover) {
      const std::string name = std::to_string(mover);
      if (!errors[mover]) {
        EXPECT_FALSE(fs::exists(folder.path() / name));
        EXPECT_EQ(name, ContentOf(to));
      } else {
        EXPECT_EQ(std::errc::file_exists, errors[mover]) << errors[mover].message();
        EXPECT_EQ(name, ContentOf(folder.path() / name));
      }
    }
  }
}
