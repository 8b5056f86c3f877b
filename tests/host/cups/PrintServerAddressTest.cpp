// Which print server is asked, and servers that do not answer.

#include <gmock/gmock.h>

#include <thread>

#include "tests/host/cups/ServedPrintServer.h"
#include "tests/host/cups/Threads.h"
#include "tests/support/SilentServer.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::HasSubstr;

namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

// Servers that do not answer

TEST(PrintServer, WhereNothingListensTheFailureSaysSo) {
  const LocalPort port;
  const EnvironmentVariable variable("CUPS_SERVER", port.address());
  const std::string failure = "no print server at " + port.address() +
                              ": Connection refused; is it running? CUPS_SERVER names another";
  TemporaryFolder folder;
  const JobRequest request{
      .queue = "Office", .title = "", .options = {}, .files = {folder.Write("a", "a")}};
  SendingProgress progress;
  const PrintServer server(kLimit);
  EXPECT_EQ(FailureOf(server.Queues()), failure);
  EXPECT_EQ(FailureOf(server.FindQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.PPDOfQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.StatusOfJob(1)), failure);
  EXPECT_EQ(FailureOf(server.Print(request, progress)), failure);
}

TEST(PrintServer, ASilentServerEndsEveryOperationWithinTheLimit) {
  const size_t threads = CountOfThreads();
  auto silent = std::make_unique<SilentServer>();
  const EnvironmentVariable variable("CUPS_SERVER", silent->address());
  const std::string failure =
      "the print server " + silent->address() + " does not answer within 0.3 s";
  TemporaryFolder folder;
  const JobRequest request{
      .queue = "Office", .title = "", .options = {}, .files = {folder.Write("a", "a")}};
  SendingProgress progress;
  const PrintServer server(300ms);
  const auto begin = Clock::now();
  EXPECT_EQ(FailureOf(server.Queues()), failure);
  EXPECT_EQ(FailureOf(server.FindQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.PPDOfQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.StatusOfJob(1)), failure);
  EXPECT_EQ(FailureOf(server.Print(request, progress)), failure);
  EXPECT_LT(Clock::now() - begin, kSoon);
  silent.reset();
  ExpectThreads(threads);
}

TEST(PrintServer, AServerThatNobodyCanReachEndsWithinTheLimit) {
  const EnvironmentVariable variable("CUPS_SERVER", "print-server.invalid:1631");
  const size_t threads = CountOfThreads();
  const auto begin = Clock::now();
  const std::string failure = FailureOf(PrintServer(300ms).Queues());
  EXPECT_LT(Clock::now() - begin, kSoon);
  EXPECT_THAT(failure, HasSubstr("print-server.invalid:1631"));
  ExpectThreads(threads);
}

// Which server

TEST_F(PrintServerTest, TheServerMayBeNamedInTheUsersConfiguration) {
  const EnvironmentVariable variable("CUPS_SERVER", std::nullopt);
  fs::create_directories(server().home() / ".cups");
  const fs::path configuration = server().home() / ".cups/client.conf";
  std::ofstream(configuration) << "ServerName " << server().address() << '\n';
  server().AddQueue({.name = "Configured"});
  EXPECT_EQ(print_server_.Address(), server().address());
  EXPECT_EQ(Find("Configured").name, "Configured");
  fs::remove(configuration);
}

TEST_F(PrintServerTest, TheAddressIsTheOneOfNowWhateverTheThreadKnowsFromBefore) {
  EXPECT_EQ(print_server_.Address(), server().address());
  const EnvironmentVariable variable("CUPS_SERVER", "/run/elsewhere.sock");
  EXPECT_EQ(print_server_.Address(), "/run/elsewhere.sock");
}

TEST_F(PrintServerTest, TheServerMayBeASocket) {
  server().AddQueue({.name = "Socket", .ppd = kSampleColor, .stopped = "Wait"});
  const EnvironmentVariable variable("CUPS_SERVER", server().socket());
  EXPECT_EQ(print_server_.Address(), server().socket());
  EXPECT_EQ(Find("Socket").name, "Socket");
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("Socket");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->has_value());
  EXPECT_EQ(StatusOf(JobOf("Socket", {"text"})).state, JobState::kStopped);
}

TEST_F(PrintServerTest, SeveralThreadsAskAtTheSameTime) {
  server().AddQueue({.name = "Busy", .ppd = kSampleColor});
  std::vector<std::thread> threads;
  std::atomic<int> answers = 0;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([this, &answers] {
      if (print_server_.FindQueue("Busy") && print_server_.PPDOfQueue("Busy")) ++answers;
    });
  }
  for (std::thread &thread : threads) thread.join();
  EXPECT_EQ(answers, 8);
}
