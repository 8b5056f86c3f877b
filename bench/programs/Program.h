// A program whose time counts.

#ifndef BENCH_PROGRAMS_PROGRAM_H
#define BENCH_PROGRAMS_PROGRAM_H

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

#include "tests/support/RunProgram.h"

// Runs from its construction, without input and output. It is killed with the object.
class Program {
 public:
  using Clock = std::chrono::steady_clock;

  // One that cannot be started ends this one.
  Program(std::vector<std::string> command, const EnvironmentChanges &changes);
  ~Program();
  Program(const Program &) = delete;
  Program &operator=(const Program &) = delete;

  Clock::time_point begin() const { return begin_; }
  double SecondsUntil(Clock::time_point when) const;

  // Bytes, until now.
  double PeakMemory() const;

  // Waits for its end, and answers how many seconds after its begin that was. One that fails ends
  // this one.
  double SecondsUntilEnd();

 private:
  std::string name_;
  Clock::time_point begin_;
  pid_t pid_ = -1;
};

#endif
