// What takes the filter out of the queues before it is removed.

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/support/PrivateServer.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

constexpr char kProgram[] = SOURCE_DIRECTORY "/filter/leave-queues";
constexpr char kRaster[] = "*cupsFilter: \"application/vnd.cups-raster 0 rastertohp\"\n";
constexpr char kLine[] = "*cupsPreFilter: \"application/vnd.cups-pdf 0 backgroundnumbers\"\n";

std::string Block(const std::string &lines, const std::string &bundle = "a.b",
                  const std::string &more = "") {
  return "*% BEGIN printer options of " + bundle + ", added by pdeprint" + more + '\n' + lines +
         "*% END printer options of " + bundle + ", added by pdeprint\n";
}

std::string Printer(const std::string &lines = "") { return TestPPD::Text(kRaster + lines); }

class LeaveQueues : public testing::Test {
 protected:
  // Without a server.
  RunResult Leave() const { return RunProgram({kProgram, folder_.path(), "127.0.0.1:1"}); }
  std::string Left(const std::string &ppd) const {
    folder_.Write("Laser.ppd", ppd);
    const RunResult result = Leave();
    EXPECT_EQ(result.status, 0) << result.err;
    return ContentOf(folder_.path() / "Laser.ppd");
  }

  TemporaryFolder folder_;
};

}  // namespace

TEST_F(LeaveQueues, TakesOutTheBlocksWithTheFilterAndNoOthers) {
  EXPECT_EQ(Left(Printer() + Block(std::string("*Any: 1\n") + kLine)), Printer());
  const std::string other = Block("*Other: 1\n", "c.d");
  EXPECT_EQ(Left(Printer() + other + Block(kLine)), Printer() + other);
  EXPECT_EQ(Left(Printer() + Block(kLine) + other), Printer() + other);
  EXPECT_EQ(Left(Printer() + other), Printer() + other);
}

TEST_F(LeaveQueues, TakesOutLinesThatWereWrittenByHand) {
  EXPECT_EQ(Left(Printer() + kLine), Printer());
  EXPECT_EQ(Left(Printer() + "*cupsFilter2: \"application/vnd.cups-pdf application/pdf -1 "
                             "/usr/lib/cups/filter/backgroundnumbers\"\n"),
            Printer());
  EXPECT_EQ(Left(Printer() + "*cupsFilter: \"image/png -1 backgroundnumbers-pictures\"\n"),
            Printer());
}

TEST_F(LeaveQueues, KeepsAllOtherBytes) {
  std::string base = Printer("*% \xE4 in Latin 1\r\n*% last line");
  EXPECT_EQ(Left(base + '\n' + Block(kLine, "a.b", "; the line before had no end")), base);
  EXPECT_EQ(Left(Printer("*% says \"backgroundnumbers\"\n")),
            Printer("*% says \"backgroundnumbers\"\n"));
}

TEST_F(LeaveQueues, KeepsTheFilesRights) {
  const fs::path file = folder_.Write("Laser.ppd", Printer() + Block(kLine));
  ASSERT_EQ(chmod(file.c_str(), 0640), 0);
  const RunResult result = Leave();
  EXPECT_EQ(result.out,
            "The queue Laser will not run the filter backgroundnumbers when the print "
            "server starts again.\n");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 1);
}

TEST_F(LeaveQueues, TakesFoldersOfAnyName) {
  const std::string name = "it's [a] \"folder\" with {all}, $more and *.ppd";
  folder_.Write(name + "/Laser.ppd", Printer() + Block(kLine));
  const fs::path folder = folder_.path() / name;
  const RunResult result = RunProgram({kProgram, folder, "127.0.0.1:1"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ContentOf(folder / "Laser.ppd"), Printer());
}

TEST_F(LeaveQueues, HasNothingToDoWhereThereIsNoFolder) {
  const RunResult result = RunProgram({kProgram, folder_.path() / "none", "127.0.0.1:1"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out + result.err, "");
}

TEST_F(LeaveQueues, SaysWhatIsLeftToDo) {
  folder_.Write("Laser.ppd", Printer() + Block(kLine));
  fs::create_directory(folder_.path() / "Laser.ppd.leave-queues");
  const RunResult result = Leave();
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("take the filter backgroundnumbers out of it by hand\n"));
}

TEST(LeaveQueuesServer, GoesOnPrintingWithoutTheFilter) {
  const PrivateServer server;
  const TemporaryFolder folder;
  const std::string ppd =
      TestPPD::Text("*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n");
  server.AddFilter(BINARY_DIRECTORY "/backgroundnumbers");
  server.AddQueue({.name = "Laser",
                   .ppd = folder.Write("a.ppd", ppd + Block("*cupsFilter2: \"application/vnd.cups-"
                                                            "pdf application/pdf -1 "
                                                            "backgroundnumbers\"\n")),
                   .description = "Second floor"});
  const fs::path ppds = server.programs().parent_path() / "root/ppd";
  const RunResult result = RunProgram({kProgram, ppds, server.address()});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "The queue Laser no longer runs the filter backgroundnumbers.\n");
  EXPECT_EQ(ContentOf(ppds / "Laser.ppd"), ppd);
  fs::remove(server.programs() / "filter/backgroundnumbers");
  EXPECT_THAT(server.Run({"lpstat", "-l", "-p", "Laser"}), HasSubstr("Second floor"));
  const std::string said = server.Run({"lp", "-d", "Laser", folder.Write("a.txt", "text\n")});
  const int job =
      std::atoi(said.substr(said.rfind('-', said.rfind(' ', said.rfind('('))) + 1).c_str());
  EXPECT_TRUE(Becomes([&] {
    const std::string state = server.JobAttributes(job)["job-state"];
    return state == "completed" || state == "stopped" || state == "aborted";
  }));
  EXPECT_EQ(server.JobAttributes(job)["job-state"], "completed");
}
