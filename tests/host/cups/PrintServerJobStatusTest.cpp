// What becomes of a job.

#include "tests/host/cups/ServedPrintServer.h"

TEST_F(PrintServerTest, AHeldJobIsHeldUntilItIsReleased) {
  server().AddQueue({.name = "Held"});
  const int job = JobOf("Held", {"text"}, {{"job-hold-until", "indefinite"}});
  EXPECT_EQ(StatusOf(job).state, JobState::kHeld);
  EXPECT_FALSE(StatusOf(job).HasEnded());
  server().ReleaseJob(job);
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
}

TEST_F(PrintServerTest, AJobOfAStoppedQueueIsStoppedWithTheQueuesReason) {
  server().AddQueue({.name = "Paused", .stopped = "Out of paper, ask Ann"});
  const int job = JobOf("Paused", {"text"});
  EXPECT_EQ(StatusOf(job).state, JobState::kStopped);
  EXPECT_EQ(StatusOf(job).message, "Out of paper, ask Ann");
  EXPECT_FALSE(StatusOf(job).HasEnded());
  server().StartQueue("Paused");
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
}

TEST_F(PrintServerTest, ACanceledJobHasEnded) {
  server().AddQueue({.name = "Canceled", .stopped = "Wait"});
  const int job = JobOf("Canceled", {"text"});
  server().Run({"cancel", std::to_string(job)});
  EXPECT_EQ(StatusOf(job).state, JobState::kCanceled);
  EXPECT_TRUE(StatusOf(job).HasEnded());
}

TEST_F(PrintServerTest, AnAbortedJobHasEndedWithThePrintersWords) {
  server().AddQueue(
      {.name = "Aborted", .options = {{"printer-error-policy", "abort-job"}}, .broken = true});
  const int job = JobOf("Aborted", {"text"});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kAborted);
  EXPECT_EQ(StatusOf(job).message, "The lamp is broken");
}

TEST_F(PrintServerTest, AJobThatStopsItsQueueIsStoppedWithThePrintersWords) {
  server().AddQueue(
      {.name = "Stops", .options = {{"printer-error-policy", "stop-printer"}}, .broken = true});
  const int job = JobOf("Stops", {"text"});
  EXPECT_TRUE(Becomes([&] { return StatusOf(job).state == JobState::kStopped; }));
  EXPECT_EQ(StatusOf(job).message, "The lamp is broken");
}

TEST_F(PrintServerTest, AnUnknownJobIsAFailureWithTheServersWords) {
  EXPECT_EQ(FailureOf(print_server_.StatusOfJob(4711)),
            "the print server " + server().address() +
                " does not tell about job 4711: Job #4711 does not exist");
}
