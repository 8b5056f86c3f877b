// A program on a terminal of its own.

#ifndef TESTS_SUPPORT_PSEUDOTERMINAL_H
#define TESTS_SUPPORT_PSEUDOTERMINAL_H

#include <string>
#include <vector>

#include "tests/support/RunProgram.h"

// All streams of the program are the terminal, on which it is the one in the foreground. It is
// killed with the object.
class PseudoTerminal {
 public:
  PseudoTerminal(const std::vector<std::string> &command, const EnvironmentChanges &environment);
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal &) = delete;
  PseudoTerminal &operator=(const PseudoTerminal &) = delete;

  // Keys; a line ends with \n, and \003, \004 and \032 are Ctrl and C, D and Z.
  void Type(const std::string &keys) const;
  // Whether this appears before the program ends; the next call looks behind it.
  bool Await(const std::string &text);
  // Everything that has appeared, line ends as \n.
  const std::string &seen() const { return seen_; }
  bool ShowsWhatIsTyped() const;

  pid_t pid() const { return pid_; }
  // Exit status, or 128 and the number of the signal; -1 where it does not end.
  int Wait();

 private:
  bool Receive();

  int terminal_ = -1;
  pid_t pid_ = -1;
  std::string seen_;
  size_t looked_at_ = 0;
  bool is_over_ = false;
};

#endif
