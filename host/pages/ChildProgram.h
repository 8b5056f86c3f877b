// Programs at work on a job's pages.

#ifndef HOST_PAGES_CHILDPROGRAM_H
#define HOST_PAGES_CHILDPROGRAM_H

#include <atomic>
#include <chrono>
#include <filesystem>
#include <map>
#include <string>
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

#endif
