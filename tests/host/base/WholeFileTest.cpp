#include "host/base/WholeFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <csignal>
#include <random>
#include <set>

#include "tests/support/ExpectedValue.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;
using testing::StartsWith;

namespace {

std::set<std::string> NamesIn(const fs::path &folder) {
  std::set<std::string> names;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

mode_t PermissionsOf(const fs::path &path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

// The message; "" on success.
std::string Write(const fs::path &path, std::string_view bytes) {
  return MessageOf(WriteWholeFile(path, bytes));
}

using Names = std::set<std::string>;

}  // namespace

TEST(WholeFile, MakesAFile) {
  TemporaryFolder folder;
  const std::string bytes("line\n\0\xff", 7);
  EXPECT_EQ("", Write(folder.path() / "a", bytes));
  EXPECT_EQ(bytes, ContentOf(folder.path() / "a"));
  EXPECT_EQ(Names{"a"}, NamesIn(folder.path()));
}

TEST(WholeFile, MakesAFileWithTheProcessesPermissions) {
  TemporaryFolder folder;
  const mode_t before = umask(026);
  EXPECT_EQ("", Write(folder.path() / "a", "text"));
  EXPECT_EQ(026u, umask(before)) << "the process's own mask has changed";
  EXPECT_EQ(0640u, PermissionsOf(folder.path() / "a"));
}

TEST(WholeFile, ReplacesAFileAndKeepsItsPermissions) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("a", "a longer old content");
  for (const mode_t permissions : {0600, 0444, 0755}) {
    ASSERT_EQ(0, chmod(file.c_str(), permissions));
    EXPECT_EQ("", Write(file, "new"));
    EXPECT_EQ("new", ContentOf(file));
    EXPECT_EQ(permissions, PermissionsOf(file));
  }
  EXPECT_EQ(Names{"a"}, NamesIn(folder.path()));
}

TEST(WholeFile, WritesNothingAtAll) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("a", "old");
  EXPECT_EQ("", Write(file, ""));
  EXPECT_TRUE(fs::exists(file));
  EXPECT_EQ(0u, fs::file_size(file));
}

TEST(WholeFile, LeavesTheOldBytesToWhoHasTheFileOpen) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("a", "old bytes");
  const int reader = open(file.c_str(), O_RDONLY);
  ASSERT_EQ("", Write(file, "new"));
  char bytes[32] = {};
  EXPECT_EQ(9, read(reader, bytes, sizeof bytes));
  EXPECT_STREQ("old bytes", bytes);
  close(reader);
}

TEST(WholeFile, FollowsLinks) {
  TemporaryFolder folder;
  const fs::path target = folder.Write("far/target", "old");
  fs::create_symlink("far/target", folder.path() / "near");
  fs::create_symlink("near", folder.path() / "nearer");
  EXPECT_EQ("", Write(folder.path() / "nearer", "new"));
  EXPECT_EQ("new", ContentOf(target));
  EXPECT_TRUE(fs::is_symlink(folder.path() / "near"));
  EXPECT_TRUE(fs::is_symlink(folder.path() / "nearer"));
  EXPECT_EQ(Names{"target"}, NamesIn(folder.path() / "far"));
}

TEST(WholeFile, MakesTheFileThatALinkLeadsTo) {
  TemporaryFolder folder;
  fs::create_directory(folder.path() / "far");
  fs::create_symlink("far/target", folder.path() / "link");
  EXPECT_EQ("", Write(folder.path() / "link", "new"));
  EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
  EXPECT_EQ("new", ContentOf(folder.path() / "far/target"));
}

TEST(WholeFile, RefusesALinkThatLeadsToItself) {
  TemporaryFolder folder;
  const fs::path link = folder.path() / "link";
  fs::create_symlink("link", link);
  EXPECT_NE("", Write(link, "new"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Names{"link"}, NamesIn(folder.path()));
}

TEST(WholeFile, WritesAFileWithTheLongestName) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / std::string(NAME_MAX, 'n');
  EXPECT_EQ("", Write(file, "new"));
  EXPECT_EQ("new", ContentOf(file));
}

TEST(WholeFile, WritesBesideANameWithoutAFolder) {
  TemporaryFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  EXPECT_EQ("", Write("a", "new"));
  fs::current_path(before);
  EXPECT_EQ("new", ContentOf(folder.path() / "a"));
}

TEST(WholeFile, RefusesAFolderThatIsAbsent) {
  TemporaryFolder folder;
  const fs::path file = folder.path() / "absent" / "a";
  EXPECT_EQ("cannot write " + file.string() + ": No such file or directory", Write(file, "new"));
  EXPECT_EQ(Names{}, NamesIn(folder.path()));
}

TEST(WholeFile, RefusesAFolderThatIsAFile) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("file", "old");
  EXPECT_EQ("cannot write " + (file / "a").string() + ": Not a directory",
            Write(file / "a", "new"));
  EXPECT_EQ("old", ContentOf(file));
}

// Not even the system's administrator makes files there.
TEST(WholeFile, RefusesAFolderThatTakesNoFiles) {
  const std::string message = Write("/proc/a", "new");
  EXPECT_THAT(message, StartsWith("cannot write /proc/a: "));
}

TEST(WholeFile, RefusesAnEmptyPath) { EXPECT_NE("", Write("", "new")); }

TEST(WholeFile, RefusesWhatIsNoRegularFile) {
  TemporaryFolder folder;
  folder.Write("folder/inside", "old");
  EXPECT_EQ("cannot write " + (folder.path() / "folder").string() + ": not a regular file",
            Write(folder.path() / "folder", "new"));
  EXPECT_EQ("old", ContentOf(folder.path() / "folder/inside"));

  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  EXPECT_EQ("cannot write " + pipe.string() + ": not a regular file", Write(pipe, "new"));
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_EQ((Names{"folder", "pipe"}), NamesIn(folder.path()));
}

TEST(WholeFile, RefusesTheNameOfAnOpenFile) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("a", "old");
  const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_GE(descriptor, 0);
  const std::string name = "/dev/fd/" + std::to_string(descriptor);
  EXPECT_EQ("cannot write " + name + ": not a regular file", Write(name, "new"));
  close(descriptor);
  EXPECT_EQ("old", ContentOf(file));
}

TEST(WholeFile, LeavesTheOldFileAndNothingElseWhenThereIsNoRoom) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("a", "old");
  const pid_t child = fork();
  if (child == 0) {
    // Larger files cannot be written then, as on a full disk.
    const rlimit limit = {1000, 1000};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    const std::string message = Write(file, std::string(5000, 'x'));
    _exit(message == "cannot write " + file.string() + ": File too large" ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(child, waitpid(child, &status, 0));
  EXPECT_EQ(0, status) << "no failure, or one for another reason";
  EXPECT_EQ("old", ContentOf(file));
  EXPECT_EQ(Names{"a"}, NamesIn(folder.path()));
}

TEST(WholeFile, IsWholeWheneverTheWriterIsKilled) {
  TemporaryFolder folder;
  const size_t size = 300'000;
  const fs::path file = folder.Write("a", std::string(size, 'a'));
  std::mt19937 random(7);
  std::set<char> versions;
  for (int round = 0; round < 50; ++round) {
    int ready[2];
    ASSERT_EQ(0, pipe(ready));
    const pid_t child = fork();
    if (child == 0) {
      for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
        if (!WriteWholeFile(file, std::string(size, letter))) _exit(1);
        if (write(ready[1], ".", 1) != 1) _exit(1);
      }
    }
    char byte = 0;
    EXPECT_EQ(1, read(ready[0], &byte, 1));  // it is at work
    // The moment of the kill is what varies; the child goes on meanwhile.
    poll(nullptr, 0, static_cast<int>(random() % 8));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(child, waitpid(child, &status, 0));
    EXPECT_TRUE(WIFSIGNALED(status)) << "the writer failed by itself";
    close(ready[0]);
    close(ready[1]);

    const std::string content = ContentOf(file);
    ASSERT_EQ(size, content.size());
    ASSERT_EQ(std::string::npos, content.find_first_not_of(content.front()));
    versions.insert(content.front());
  }
  EXPECT_GT(versions.size(), 1u) << "the writers wrote one version only";
}

TEST(WholeFile, KeepsWhatIsThereWhereThatIsAskedFor) {
  const TemporaryFolder folder;
  const fs::path path = folder.path() / "file";
  EXPECT_EQ("", MessageOf(WriteWholeFile(path, "one", path, Existing::kKept)));
  EXPECT_EQ("cannot write " + path.string() + ": File exists",
            MessageOf(WriteWholeFile(path, "two", path, Existing::kKept)));
  EXPECT_EQ("one", ContentOf(path));
  EXPECT_EQ(std::set<std::string>{"file"}, NamesIn(folder.path()));
}
