#include "portal/DocumentCopy.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>

#include "tests/support/Patience.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

class DocumentCopy : public testing::Test {
 protected:
  // The end of a copy; -1: none.
  static int EndOf(Child child) {
    std::optional<int> status;
    Becomes([&] { return (status = child.TakeStatus()).has_value(); });
    return status.value_or(-1);
  }
  int Copy(const Descriptor &source, uintmax_t most = kLargestDocument) const {
    return EndOf(StartCopying(source, file(), most));
  }
  fs::path file() const { return folder_.path() / "copy"; }
  Descriptor Open(const fs::path &path, int flags) const {
    return Descriptor(open(path.c_str(), flags | O_CLOEXEC));
  }

  TemporaryFolder folder_;
};

}  // namespace

TEST_F(DocumentCopy, HasWhatComesFromWhereTheFileStands) {
  const Descriptor source = Open(folder_.Write("source", "xx%PDF-1.5"), O_RDONLY);
  lseek(source.get(), 2, SEEK_SET);
  EXPECT_EQ(0, Copy(source));
  EXPECT_EQ("%PDF-1.5", ContentOf(file()));
}

TEST_F(DocumentCopy, IsTheUsersAlone) {
  EXPECT_EQ(0, Copy(Open(folder_.Write("source", "x"), O_RDONLY)));
  struct stat status = {};
  ASSERT_EQ(0, stat(file().c_str(), &status));
  EXPECT_EQ(0600U, status.st_mode & 0777U);
}

TEST_F(DocumentCopy, ReplacesNothing) {
  folder_.Write("copy", "before");
  EXPECT_EQ(EEXIST, Copy(Open(folder_.Write("source", "x"), O_RDONLY)));
  EXPECT_EQ("before", ContentOf(file()));
}

TEST_F(DocumentCopy, ComesThroughAPipeInPieces) {
  int ends[2];
  ASSERT_EQ(0, pipe2(ends, O_CLOEXEC | O_NONBLOCK));
  const Descriptor source(ends[0]);
  Descriptor sink(ends[1]);
  Child child = StartCopying(source, file());
  // The copying process has a copy of the other end, as of all that is open here: it reads on until
  // it is ended.
  EXPECT_EQ(5, write(sink.get(), "first", 5));
  EXPECT_TRUE(Becomes([this] { return ContentOf(file()) == "first"; }));
  EXPECT_EQ(6, write(sink.get(), "second", 6));
  EXPECT_TRUE(Becomes([this] { return ContentOf(file()) == "firstsecond"; }));
  child.Signal(SIGKILL);
  EXPECT_EQ(128 + SIGKILL, EndOf(std::move(child)));
}

TEST_F(DocumentCopy, SaysThatNothingCame) {
  EXPECT_EQ(ENODATA, Copy(Open(folder_.Write("source", ""), O_RDONLY)));
  fs::remove(file());
  EXPECT_EQ(ENODATA, Copy(Open("/dev/null", O_RDONLY)));
}

TEST_F(DocumentCopy, SaysWhatCannotBeRead) {
  EXPECT_EQ(EBADF, Copy(Open(folder_.Write("source", "x"), O_WRONLY)));
  fs::remove(file());
  EXPECT_EQ(EBADF, Copy(Open(folder_.path() / "source", O_PATH)));
  fs::remove(file());
  EXPECT_EQ(EISDIR, Copy(Open(folder_.path(), O_RDONLY)));
}

TEST_F(DocumentCopy, IsNoLargerThanAsked) {
  EXPECT_EQ(EFBIG, Copy(Open("/dev/zero", O_RDONLY), 1 << 20));
  EXPECT_LE(fs::file_size(file()), uintmax_t{1} << 20);
}

TEST_F(DocumentCopy, TakesLargeOnes) {
  const Descriptor source = Open(folder_.Write("source", ""), O_RDWR);
  ASSERT_EQ(0, ftruncate(source.get(), 200 << 20));
  EXPECT_EQ(0, Copy(source));
  EXPECT_EQ(uintmax_t{200} << 20, fs::file_size(file()));
}
