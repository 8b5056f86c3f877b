// Files that cannot be printed.

#include <sys/stat.h>

#include "tests/host/cups/ServedPrintServer.h"
#include "tests/support/ChildProcess.h"

namespace fs = std::filesystem;

namespace {

class FileTest : public testing::Test {
 protected:
  FileTest() { server_.AddQueue({.name = "Office"}); }

  // Why a job with a good file and then this one is not printed. Checks that nothing was sent.
  std::string ReasonAgainst(const fs::path &path) {
    JobRequest request{.queue = "Office", .title = "", .options = {}, .files = {}};
    request.files = {folder_.Write("good", "good"), path};
    SendingProgress progress;
    const std::string failure = FailureOf(PrintServer(kLimit).Print(request, progress));
    EXPECT_TRUE(server_.JobAttributes(1).empty());
    return failure;
  }

  PrivateServer server_;
  ServerEnvironment environment_{server_};
  TemporaryFolder folder_;
};

}  // namespace

TEST_F(FileTest, AMissingFileSendsNothing) {
  const fs::path path = folder_.path() / "missing";
  EXPECT_EQ(ReasonAgainst(path), "cannot print " + path.string() + ": no such file");
}

TEST_F(FileTest, AFolderSendsNothing) {
  EXPECT_EQ(ReasonAgainst(folder_.path()),
            "cannot print " + folder_.path().string() + ": it is a folder");
}

TEST_F(FileTest, APipeSendsNothing) {
  const fs::path path = folder_.path() / "pipe";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(ReasonAgainst(path), "cannot print " + path.string() + ": not a regular file");
}

TEST_F(FileTest, AnEmptyFileSendsNothing) {
  const fs::path path = folder_.Write("empty", "");
  EXPECT_EQ(ReasonAgainst(path), "cannot print " + path.string() + ": the file is empty");
}

TEST_F(FileTest, AnUnreadableFileSendsNothing) {
  const fs::path path = folder_.Write("secret", "secret");
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  folder_.Write("good", "good");
  const std::string failure = InChild([&] {
    if (!LosePrivileges()) return std::string("(privileges stay)");
    JobRequest request{.queue = "Office", .title = "", .options = {}, .files = {path}};
    SendingProgress progress;
    return FailureOf(PrintServer(kLimit).Print(request, progress));
  });
  EXPECT_EQ(failure, "cannot print " + path.string() + ": Permission denied");
  EXPECT_TRUE(server_.JobAttributes(1).empty());
}

TEST_F(FileTest, NoFileAtAllSendsNothing) {
  JobRequest request{.queue = "Office", .title = "", .options = {}, .files = {}};
  SendingProgress progress;
  EXPECT_EQ(FailureOf(PrintServer(kLimit).Print(request, progress)), "no file to print");
  EXPECT_TRUE(server_.JobAttributes(1).empty());
}
