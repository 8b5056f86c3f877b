// A process at work on a request, which ends with this one.

#ifndef PORTAL_CHILD_H
#define PORTAL_CHILD_H

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "portal/Descriptor.h"

class Child {
 public:
  // Runs a program, by its path, without input; what it writes goes into this file, what it says to
  // where this process says it. One that cannot be run ends with status 127.
  static Child Run(const std::vector<std::string> &command, const std::filesystem::path &out);
  // Runs work that answers an exit status, in a copy of this process.
  static Child Work(const std::function<int()> &work);

  Child(Child &&other) noexcept;
  Child &operator=(Child &&other) = delete;
  // Asks it to end, if it has not.
  ~Child();

  // Readable when it has ended.
  int end() const { return end_.get(); }
  // Its exit status, or 128 and the number of the signal that ended it, once; none: it is at work.
  std::optional<int> TakeStatus();
  void Signal(int number) const;

 private:
  explicit Child(pid_t process);

  pid_t process_;  // 0: it has ended; negative: it never began
  Descriptor end_;
};

#endif
