// Services that programs of the platform start and leave behind.

#ifndef BENCH_PROGRAMS_LEFTBEHIND_H
#define BENCH_PROGRAMS_LEFTBEHIND_H

#include <sys/types.h>

#include <set>

// They end with the object: those that this process or its children have started meanwhile.
class LeftBehind {
 public:
  LeftBehind();
  ~LeftBehind();
  LeftBehind(const LeftBehind &) = delete;
  LeftBehind &operator=(const LeftBehind &) = delete;

 private:
  std::set<pid_t> before_;
};

#endif
