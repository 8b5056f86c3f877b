// Programs run by tests.

#ifndef TESTS_SUPPORT_RUNPROGRAM_H
#define TESTS_SUPPORT_RUNPROGRAM_H

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/Patience.h"
#include "tests/support/TemporaryFolder.h"

inline constexpr char kPdeprint[] = BINARY_DIRECTORY "/pdeprint";

// Changes to this process's environment: a value, or none to take the variable away.
using EnvironmentChanges = std::map<std::string, std::optional<std::string>>;

struct RunOptions {
  EnvironmentChanges environment = {};
  std::string folder = {};  // where it runs; empty: here
  std::string out = {};     // where its standard output goes; empty: it is captured, "-": closed
};

struct RunResult {
  int status = -1;  // exit status; 128 and the number of the signal that ended it
  bool timed_out = false;
  std::string out = {};
  std::string err = {};
};

// A program that has been started. It is killed with the object.
class RunningProgram {
 public:
  explicit RunningProgram(std::vector<std::string> command, const RunOptions &options = {});
  ~RunningProgram();
  RunningProgram(const RunningProgram &) = delete;
  RunningProgram &operator=(const RunningProgram &) = delete;

  pid_t pid() const { return pid_; }
  void Signal(int number) const;
  // Waits at most so long for its end.
  bool HasEnded(std::chrono::milliseconds limit) const;
  // Waits for its end and answers what it wrote; kills it after the limit.
  RunResult Wait(std::chrono::milliseconds limit = kPatience);

 private:
  TemporaryFolder folder_;
  pid_t pid_ = -1;
  int end_ = -1;  // readable once the program has ended
};

RunResult RunProgram(const std::vector<std::string> &command, const RunOptions &options = {});

// A copy of pdeprint in another folder, with the library that it finds beside itself.
void CopyPdeprint(const std::filesystem::path &folder);

// pdeprint without a display, in English.
RunResult RunPdeprint(const std::vector<std::string> &arguments, RunOptions options = {});

#endif
