// A question for a password, between the thread that asks and the main thread, which shows it.

#ifndef HOST_DIALOG_OPENQUESTION_H
#define HOST_DIALOG_OPENQUESTION_H

#include <condition_variable>
#include <mutex>
#include <optional>

#include "host/cups/Passwords.h"

// One at a time, each with a number of its own: an answer to a question that has been withdrawn is
// none to the next.
class OpenQuestion : public PasswordSource {
 public:
  Expected<Login> Ask(const PasswordQuestion &question,
                      const std::atomic<bool> &is_withdrawn) override;

  struct Numbered {
    int number;
    PasswordQuestion question;
  };
  // No value: there is none.
  std::optional<Numbered> Get() const;
  bool IsOpen(int number) const;
  // No login: none is given.
  void Answer(int number, std::optional<Login> login);

  // Whoever asks gets no password, now and later.
  void Close();

 private:
  mutable std::mutex mutex_;  // of all
  std::condition_variable changed_;
  std::optional<Numbered> open_;
  std::optional<Login> answer_;
  bool has_answer_ = false;
  bool is_closed_ = false;
  int last_number_ = 0;
};

#endif
