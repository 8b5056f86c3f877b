// The print server as the program sees it, on a real one that the tests of a suite share.

#ifndef TESTS_HOST_CUPS_SERVEDPRINTSERVER_H
#define TESTS_HOST_CUPS_SERVEDPRINTSERVER_H

#include <gtest/gtest.h>

#include <fstream>

#include "host/cups/PrintServer.h"
#include "tests/support/Patience.h"
#include "tests/support/PrivateServer.h"

using Texts = std::vector<std::string>;

inline constexpr char kSampleColor[] = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";
// Longer than a server that is well takes for an answer.
inline constexpr std::chrono::seconds kLimit = std::chrono::seconds(20) * kSlowdown;

template <typename Value>
std::string FailureOf(Expected<Value> result) {
  return result ? "(no failure)" : result.message();
}

// A server that these tests share; each uses queues of its own.
class PrintServerTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { server_ = new PrivateServer; }
  static void TearDownTestSuite() {
    delete server_;
    server_ = nullptr;
  }

  PrivateServer &server() const { return *server_; }

  Expected<int> Print(const std::string &queue, const Texts &documents,
                      const JobOptions &options = {}) const {
    JobRequest request{.queue = queue, .title = "Title", .options = options, .files = {}};
    for (const std::string &document : documents) {
      request.files.push_back(
          folder_.Write("document" + std::to_string(request.files.size()), document));
    }
    SendingProgress progress;
    return print_server_.Print(request, progress);
  }

  // The number of a job that is accepted.
  int JobOf(const std::string &queue, const Texts &documents,
            const JobOptions &options = {}) const {
    Expected<int> job = Print(queue, documents, options);
    EXPECT_EQ(FailureOf(job), "(no failure)");
    return job ? *job : 0;
  }

  JobStatus StatusOf(int job) const {
    Expected<JobStatus> status = print_server_.StatusOfJob(job);
    EXPECT_EQ(FailureOf(status), "(no failure)");
    return status ? *status : JobStatus();
  }

  Queue Find(const std::string &name) const {
    Expected<Queue> queue = print_server_.FindQueue(name);
    EXPECT_EQ(FailureOf(queue), "(no failure)");
    return queue ? *queue : Queue();
  }

  void WriteLpoptions(const std::string &lines) const {
    std::filesystem::create_directories(server().home() / ".cups");
    std::ofstream(server().home() / ".cups/lpoptions") << lines;
  }

  TemporaryFolder folder_;

 private:
  static inline PrivateServer *server_ = nullptr;

  ServerEnvironment environment_{*server_};

 protected:
  PrintServer print_server_{kLimit};

  ~PrintServerTest() override {
    std::error_code error;
    std::filesystem::remove(server().home() / ".cups/lpoptions", error);
  }
};

#endif
