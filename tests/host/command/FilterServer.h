// A print server that has the filters, and queues that `pdeprint enable` gives them.

#ifndef TESTS_HOST_COMMAND_FILTERSERVER_H
#define TESTS_HOST_COMMAND_FILTERSERVER_H

#include <map>
#include <string>

#include "tests/host/command/ServedProgram.h"
#include "tests/support/TestPPD.h"

class FilterServer : public ServedProgram {
 protected:
  static void SetUpTestSuite() { StartServer(); }

  // A test may have taken them away.
  void SetUp() override { AddFilters(server()); }
  static void AddFilters(const PrivateServer &server) {
    for (const char *program : {"", "-look", "-pictures"}) {
      server.AddFilter(std::string(BINARY_DIRECTORY "/backgroundnumbers") + program);
    }
  }

  void AddQueue(const std::string &name, const std::string &lines) const {
    server().AddQueue(
        {.name = name, .ppd = folder_.Write("a.ppd", TestPPD::Text(kColorDevice + lines))});
  }

  static RunResult Pdeprint(const Arguments &arguments) {
    return Run(arguments, {{"CUPS_SERVERBIN", server().programs().string()}});
  }
  static void Enable(const std::string &queue, const Arguments &more = {}) {
    const RunResult result = Pdeprint(Arguments{"enable", "-d", queue, "--apply"} + more);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, testing::HasSubstr(" and the filter backgroundnumbers\n"));
  }

  // What the printer gets, once the job is done.
  static std::string Printed(const std::string &queue, const std::filesystem::path &file,
                             const Arguments &options, int *number = nullptr) {
    const std::string said = server().Run(Arguments{"lp", "-d", queue} + options + Arguments{file});
    const int job = std::atoi(said.substr(said.rfind('-') + 1).c_str());
    if (number != nullptr) *number = job;
    EXPECT_TRUE(Becomes([&] {
      const std::string state = server().JobAttributes(job)["job-state"];
      return state == "completed" || state == "aborted" || state == "stopped";
    }));
    EXPECT_EQ(server().JobAttributes(job)["job-state"], "completed")
        << ContentOf(server().programs().parent_path() / "error_log");
    return server().OutputOf(job);
  }

  static inline const Arguments kOn = {"-o", "VQBackgroundNumbering=On", "-o", "VQStartNumber=25"};
};

#endif
