// `pdeprint print`: waiting for the job, and jobs that end otherwise.

#include <gmock/gmock.h>

#include "tests/host/command/PrintingProgram.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::HasSubstr;

namespace {

class PrintVerbWaiting : public PrintVerb {
 protected:
  // Starts to print on the queue, and answers when the job is there.
  void Begin(const std::string &queue) {
    const int before = NewestJob();
    program_ = std::make_unique<RunningProgram>(
        Arguments{kPdeprint, "print", "--wait", "-d", queue, file_}, Options());
    ASSERT_TRUE(Becomes([before] { return NewestJob() > before; }));
    job_ = NewestJob();
    id_ = queue + '-' + std::to_string(job_);
  }

  // What has come so far on a stream of the program, which is still running.
  std::string Said(int stream) const {
    return ContentOf("/proc/" + std::to_string(program_->pid()) + "/fd/" + std::to_string(stream));
  }

  std::unique_ptr<RunningProgram> program_;
  int job_ = 0;
  std::string id_;
};

}  // namespace

TEST_F(PrintVerbWaiting, EndsWhenTheJobHasBeenPrinted) {
  const RunResult result =
      PrintOn("Prints", {"--wait", "--set", "Valid=On", "--set", "StartNumber=25"});
  const std::string printed = server().OutputOf(NewestJob());
  JobSaidIn(result, "Prints");
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(printed, HasSubstr("(Hello) show"));
  EXPECT_THAT(printed, HasSubstr("%%BeginFeature: *VQBackgroundNumbering On\n"));
  EXPECT_THAT(printed, HasSubstr("%%BeginFeature: *VQStartNumber 25\n"));
}

TEST_F(PrintVerbWaiting, EndsWhenAQueueWithoutAPPDHasPrinted) {
  const RunResult result = PrintOn("Raw", {"--wait"});
  const std::string printed = server().OutputOf(NewestJob());
  JobSaidIn(result, "Raw");
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(printed, kPage);
}

TEST_F(PrintVerbWaiting, SaysThatAStoppedQueueIsWaitedForAndGoesOnWithIt) {
  server().AddQueue({.name = "Empty", .stopped = "Out of paper, ask Ann"});
  Begin("Empty");
  EXPECT_TRUE(Becomes([this] { return !Said(2).empty(); }));
  EXPECT_EQ(Said(2), "pdeprint: waiting: Out of paper, ask Ann\n");
  EXPECT_EQ(Said(1), "request id is " + id_ + '\n');
  server().StartQueue("Empty");
  const RunResult result = program_->Wait();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "pdeprint: waiting: Out of paper, ask Ann\n");
  EXPECT_EQ(server().OutputOf(job_), kPage);
}

TEST_F(PrintVerbWaiting, SaysThatAHeldJobIsWaitedFor) {
  WriteLpoptions("Dest Raw job-hold-until=indefinite\n");
  Begin("Raw");
  EXPECT_TRUE(Becomes([this] { return !Said(2).empty(); }));
  EXPECT_EQ(Said(2), "pdeprint: waiting: " + id_ + " is held\n");
  server().ReleaseJob(job_);
  EXPECT_EQ(program_->Wait().status, 0);
}

TEST_F(PrintVerbWaiting, SaysWhatAPrinterWaitsForThatIsAtWork) {
  server().AddQueue({.name = "NoPaper"});
  server().Run({"/usr/sbin/lpadmin", "-p", "NoPaper", "-v", "printer:/empty"});
  Begin("NoPaper");
  EXPECT_TRUE(Becomes([this] { return !Said(2).empty(); }));
  EXPECT_EQ(Said(2), "pdeprint: waiting: Put paper in\n");
  std::ofstream(server().programs().parent_path() / "printed/paper").flush();
  const RunResult result = program_->Wait();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "pdeprint: waiting: Put paper in\n");
}

TEST_F(PrintVerbWaiting, SaysWhyAJobIsHeldThatThePrinterCouldNotPrint) {
  server().AddQueue(
      {.name = "Retries", .options = {{"printer-error-policy", "retry-job"}}, .broken = true});
  Begin("Retries");
  EXPECT_TRUE(Becomes([this] { return !Said(2).empty(); }));
  EXPECT_EQ(Said(2), "pdeprint: waiting: " + id_ + " is held: The lamp is broken\n");
  server().Run({"cancel", id_});
  EXPECT_EQ(program_->Wait().status, 1);
}

TEST_F(PrintVerbWaiting, ACanceledJobIsAFailure) {
  Begin("Office");
  server().Run({"cancel", id_});
  const RunResult result = program_->Wait();
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "request id is " + id_ + '\n');
  EXPECT_THAT(result.err, HasSubstr("pdeprint: " + id_ + " was canceled"));
}

TEST_F(PrintVerbWaiting, AnAbortedJobIsAFailureInThePrintersWords) {
  server().AddQueue(
      {.name = "Broken", .options = {{"printer-error-policy", "abort-job"}}, .broken = true});
  const RunResult result = PrintOn("Broken", {"--wait"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "pdeprint: Broken-" + std::to_string(NewestJob()) +
                            " was aborted: The lamp is broken\n");
}

TEST_F(PrintVerbWaiting, AJobThatHasGoneWithItsQueueIsAFailure) {
  server().AddQueue({.name = "Leaving", .stopped = "Paused"});
  Begin("Leaving");
  server().Run({"/usr/sbin/lpadmin", "-x", "Leaving"});
  const RunResult result = program_->Wait();
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr(id_ + " was sent, but: the print server "));
}

TEST_F(PrintVerb, AnEndFromOutsideTakesTheJobBackThatIsBeingSent) {
  const std::vector<int> before = server().LiveJobs();
  TemporaryFolder folder;
  const fs::path large = folder.Write("large.ps", kPage);
  fs::resize_file(large, 400'000'000);
  RunningProgram program({kPdeprint, "print", "-d", "Office", large.string()},
                         {.environment = server().Environment()});
  while (server().LiveJobs() == before && !program.HasEnded(std::chrono::milliseconds(5))) continue;
  server().Freeze();
  program.Signal(SIGINT);
  EXPECT_FALSE(program.HasEnded(std::chrono::milliseconds(100))) << "the job is to be taken back";
  server().GoOn();
  const RunResult result = program.Wait();
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_THAT(result.err, HasSubstr("cancel"));
  EXPECT_EQ(before, server().LiveJobs());
}

TEST_F(PrintVerb, ChoicesThatThePrinterForbidsAreNoted) {
  const RunResult result =
      PrintOn("Office", {"--set", "Duplex=DuplexTumble", "--set", "MediaType=Transparency"});
  EXPECT_EQ(0, result.status);
  EXPECT_THAT(result.err, HasSubstr("cannot be combined on this printer"));
}
