// Programs at work on a job's pages.

#ifndef HOST_PAGES_CHILDPROGRAM_H
#define HOST_PAGES_CHILDPROGRAM_H

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"

struct ChildProgram {
  std::filesystem::path path;
  std::vector<std::string> arguments;              // behind its name
  std::map<std::string, std::string> environment;  // in the place of what is there
  std::filesystem::path out;                       // what it writes goes into this file
  std::filesystem::path log;                       // and what it says into this one
  std::chrono::milliseconds limit = std::chrono::minutes(10);
};

struct ChildEnd {
  enum class Kind { kExited, kKilled, kTookTooLong, kCanceled };
  Kind kind = Kind::kExited;
  int number = 0;  // its exit status, or the signal that ended it
};

// Runs it to its end, without input. It ends with this program, with those that it has started; so
// it does where it takes too long or is canceled. The failure: no process can be started.
Expected<ChildEnd> Run(const ChildProgram &program, const std::atomic<bool> &cancel);

// A program that has been started, and ends with the object, with those that it has started. Other
// threads may wait for it than the one that has started it.
class RunningChild {
 public:
  // The failure: no process can be started.
  static Expected<RunningChild> Start(const ChildProgram &program);
  RunningChild(RunningChild &&other) noexcept;
  RunningChild &operator=(RunningChild &&) = delete;
  ~RunningChild();

  // What the program reads next. False: it has ended, or does not read.
  bool Tell(std::string_view text) const;
  // The program reads no more.
  void CloseInput() const;
  // Once: it is ended where it takes too long, from now on, or is canceled.
  ChildEnd Wait(std::chrono::milliseconds limit, const std::atomic<bool> &cancel) const;

 private:
  RunningChild(pid_t supervisor, int control, int input)
      : supervisor_(supervisor), control_(control), input_(input) {}

  pid_t supervisor_;  // its process group; 0: moved away
  int control_;       // where its end is told, and where it learns of ours
  int input_;
};

#endif
