// Sending that is stopped on its way.

#include <gmock/gmock.h>

#include <thread>

#include "tests/host/cups/ServedPrintServer.h"
#include "tests/host/cups/Threads.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::StartsWith;

namespace {

using Clock = std::chrono::steady_clock;

class SendingTest : public testing::Test {
 protected:
  // So large that it is on its way for a while.
  SendingTest() {
    server_.AddQueue({.name = "Office"});
    request_.queue = "Office";
    request_.files = {folder_.Write("large", "x")};
    fs::resize_file(request_.files.front(), 2'000'000'000);
  }

  // Begins to print and answers when something has been sent.
  void TearDown() override { ExpectThreads(threads_); }

  std::thread Begin(std::chrono::milliseconds limit) {
    std::thread thread(
        [this, limit] { failure_ = FailureOf(PrintServer(limit).Print(request_, progress_)); });
    EXPECT_TRUE(Becomes([this] { return progress_.bytes_sent > 0; }));
    return thread;
  }

  bool IsCanceled(int job) const {
    const auto attributes = server_.JobAttributes(job);
    return attributes.contains("job-state") && attributes.at("job-state") == "canceled";
  }

  PrivateServer server_;
  ServerEnvironment environment_{server_};
  TemporaryFolder folder_;
  JobRequest request_;
  SendingProgress progress_;
  std::string failure_;
  const size_t threads_ = CountOfThreads();
};

}  // namespace

TEST_F(SendingTest, CancelingTakesTheJobBack) {
  std::thread printing = Begin(kLimit);
  progress_.cancel = true;
  printing.join();
  EXPECT_EQ(failure_, "the job was canceled");
  EXPECT_LT(progress_.bytes_sent, progress_.bytes_total);
  EXPECT_TRUE(server_.LiveJobs().empty());
  EXPECT_TRUE(IsCanceled(1));
}

TEST_F(SendingTest, CancelingDoesNotWaitForAServerThatTakesNothing) {
  std::thread printing = Begin(800ms);
  server_.Freeze();
  const auto begin = Clock::now();
  progress_.cancel = true;
  printing.join();
  EXPECT_LT(Clock::now() - begin, kSoon);
  EXPECT_EQ(failure_, "the job was canceled; job 1 is still there: the print server " +
                          server_.address() + " does not answer within 0.8 s");
  server_.GoOn();
  EXPECT_TRUE(Becomes([this] { return server_.LiveJobs().empty(); }));
}

TEST_F(SendingTest, AFileThatGetsShorterOnItsWayTakesTheJobBack) {
  std::thread printing = Begin(kLimit);
  fs::resize_file(request_.files.front(), 1);
  printing.join();
  EXPECT_EQ(failure_,
            "cannot read " + request_.files.front().string() + ": the file is damaged or cut off");
  EXPECT_TRUE(server_.LiveJobs().empty());
  EXPECT_TRUE(IsCanceled(1));
}

TEST_F(SendingTest, AServerThatTakesNoMoreEndsTheSending) {
  std::thread printing = Begin(300ms);
  server_.Freeze();
  const auto begin = Clock::now();
  printing.join();
  EXPECT_LT(Clock::now() - begin, kSoon);
  EXPECT_THAT(failure_, StartsWith("the print server " + server_.address() +
                                   " does not answer within 0.3 s; job 1 is still there: "));
  server_.GoOn();
  EXPECT_TRUE(Becomes([this] { return server_.LiveJobs().empty(); }));
}
