// The terminal from which the program was started.

#ifndef HOST_COMMAND_TERMINAL_H
#define HOST_COMMAND_TERMINAL_H

#include <atomic>
#include <functional>
#include <optional>
#include <string>

// One at a time. Waiting for an answer ends when the flag is set, by another thread or a signal.
class Terminal {
 public:
  explicit Terminal(const std::atomic<bool> &is_over);
  ~Terminal();
  Terminal(const Terminal &) = delete;
  Terminal &operator=(const Terminal &) = delete;

  // False: the program has none.
  bool IsThere() const { return file_ >= 0; }
  // As messages are written: "pdeprint: TEXT".
  void WriteLine(const std::string &text) const;

  // The line that is typed behind the question; none: the input was ended, or nobody waits for it
  // any more.
  std::optional<std::string> Ask(const std::string &question) const;
  // The same, and what is typed is not shown. Signals that end or stop the program find the
  // terminal as it was before, and then do what they did before.
  std::optional<std::string> AskSecretly(const std::string &question) const;

 private:
  std::optional<std::string> ReadLine(const std::string &question,
                                      const std::function<bool()> &has_begun_anew) const;

  const std::atomic<bool> &is_over_;
  const int file_;
};

#endif
