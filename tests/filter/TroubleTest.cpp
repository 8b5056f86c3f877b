// What happens around the filter: no room, no folder, being ended.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "filter/Descriptor.h"
#include "tests/filter/FilterRun.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/RawPdf.h"

using testing::HasSubstr;

namespace {

size_t FilesIn(const std::filesystem::path &folder) {
  const std::filesystem::directory_iterator files(folder);
  return static_cast<size_t>(std::distance(begin(files), end(files)));
}

}  // namespace

TEST(Trouble, WithoutATemporaryFolderPagesAreWithoutNumbers) {
  for (const bool pipe : {true, false}) {
    const EnvironmentChanges nowhere = {{"TMPDIR", "/nowhere"}};
    const Filtered run =
        pipe ? Filter(SmallPdf(), kOn, nowhere) : FilterFile(SmallPdf(), kOn, nowhere);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, SmallPdf());
    EXPECT_EQ(run.log,
              "WARNING: The pages have no numbers: no temporary file can be made: No such "
              "file or directory\n");
  }
}

// The document itself does not fit where it comes through a pipe, and with numbers where it is a
// file.
TEST(Trouble, WhereTheTemporaryFolderIsFullPagesAreWithoutNumbers) {
  const TemporaryFolder disk, folder;
  const std::string pdf = SmallPdf(3000);
  const std::string file = folder.Write("document", pdf), out = folder.path() / "out";
  const std::string run = std::string("'") + kFilter + "' 1 user title 1 '" + kOn + "' ";
  for (const std::string &command : {"cat '" + file + "' | " + run, run + "'" + file + "'"}) {
    const std::string answer = InChild([&]() -> std::string {
      if (!MountSmallDisk(disk.path())) return "cannot mount";
      setenv("TMPDIR", disk.path().c_str(), 1);
      return std::system((command + " >'" + out + "' 2>'" + out + ".log'").c_str()) == 0 ? "done"
                                                                                         : "failed";
    });
    // Only a disk of the test's own can be filled without harm, and containers may forbid to mount
    // one, even to root.
    if (answer == "cannot mount") GTEST_SKIP() << "this machine mounts no disks for tests";
    EXPECT_EQ(answer, "done");
    const std::string log = ContentOf(out + ".log");
    EXPECT_TRUE(ContentOf(out) == pdf) << command << log;
    EXPECT_THAT(log, HasSubstr("WARNING: The pages have no numbers: ")) << command;
    EXPECT_THAT(log, HasSubstr("No space left on device")) << command;
  }
}

// What is still to come of the document would be this process's.
TEST(Trouble, CanceledItEndsAtOnceAndLeavesNothing) {
  const TemporaryFolder temporary, folder;
  const std::string input = folder.path() / "input";
  ASSERT_EQ(mkfifo(input.c_str(), 0600), 0);
  const Descriptor sender(open(input.c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_TRUE(WriteAll(sender.get(), std::string(10'000, '\0')));
  RunOptions options;
  options.environment = {{"TMPDIR", temporary.path().string()}};
  RunningProgram program(
      {"bash", "-c", "exec \"$0\" 1 user title 1 \"$1\" <\"$2\"", kFilter, kOn, input}, options);
  const std::string descriptors = "/proc/" + std::to_string(program.pid()) + "/fd";
  const auto has_read = [&] {
    std::error_code error;
    for (const auto &entry : std::filesystem::directory_iterator(descriptors, error)) {
      if (std::filesystem::read_symlink(entry, error).string().find("backgroundnumbers.") !=
          std::string::npos) {
        return true;
      }
    }
    return false;
  };
  ASSERT_TRUE(Becomes(has_read));
  program.Signal(SIGTERM);
  EXPECT_TRUE(program.HasEnded(kSoon));
  EXPECT_EQ(program.Wait().status, 128 + SIGTERM);
  EXPECT_EQ(FilesIn(temporary.path()), 0u);
}

// What it starts goes with it.
TEST(Trouble, KilledInTheMiddleItTakesWhatItHasStartedAlong) {
  const TemporaryFolder temporary, folder;
  const std::string file = folder.Write("document", SmallPdf(20000));
  RunOptions options;
  options.environment = {{"TMPDIR", temporary.path().string()}};
  RunningProgram program({kFilter, "1", "user", "title", "1", kOn, file}, options);
  const std::string children = "/proc/" + std::to_string(program.pid()) + "/task/" +
                               std::to_string(program.pid()) + "/children";
  std::string child;
  ASSERT_TRUE(Becomes([&] { return !(child = ContentOf(children)).empty(); }));
  program.Signal(SIGKILL);
  EXPECT_TRUE(program.HasEnded(kSoon));
  program.Wait();
  child.erase(child.find_first_not_of("0123456789"));
  EXPECT_TRUE(Becomes([&] {
    const std::string state = ContentOf("/proc/" + child + "/stat");
    return state.empty() || state.find(") Z ") != std::string::npos;
  }));
  EXPECT_EQ(FilesIn(temporary.path()), 0u);
}

TEST(Trouble, WithoutTheProgramThatLooksNumbersGoOver) {
  const TemporaryFolder folder;
  std::filesystem::copy_file(kFilter, folder.path() / "backgroundnumbers");
  const std::string file = folder.Write("document", SmallPdf(1));
  const RunResult result =
      RunProgram({folder.path() / "backgroundnumbers", "1", "user", "title", "1", kOn, file});
  EXPECT_EQ(TextOfPdf(result.out), "Page 1 25");
  EXPECT_THAT(result.out, HasSubstr("\nq\n"));
  EXPECT_THAT(result.err, HasSubstr("backgroundnumbers-look cannot be run: No such file"));
}

TEST(LongDocument, FiveThousandPages) {
  const Filtered run = Filter(SmallPdf(5000));
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.log, HasSubstr("5000 pages from 25 on"));
  const std::string text = TextOfPdf(run.out);
  for (const char *word : {" 25 ", " 999 ", " 1000 ", " 5023 "}) EXPECT_THAT(text, HasSubstr(word));
}
