// Names and passwords for print servers: asked for when a server wants them, kept for the session
// and nowhere else.

#ifndef HOST_CUPS_PASSWORDS_H
#define HOST_CUPS_PASSWORDS_H

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "host/base/Expected.h"
#include "host/base/Secret.h"

struct Login {
  std::string user;
  Secret password;
};

struct PasswordQuestion {
  std::string reason;   // who wants a password, and what for: a clause without full stop
  std::string mistake;  // such a clause, too, about the answer before; empty: there was none
  std::string user;     // proposed
};

// Somebody who can be asked.
class PasswordSource {
 public:
  virtual ~PasswordSource() = default;
  // Blocks until there is an answer, or until nobody wants to know it any more, which other threads
  // may say at any time. The failure says why there is none. Called on the thread of an operation
  // that waits for a print server, never on the main one; one question at a time.
  virtual Expected<Login> Ask(const PasswordQuestion &question,
                              const std::atomic<bool> &is_withdrawn) = 0;
};

Failure NoPasswordGiven();

// What the operations of a session know of names and passwords. They share it, on any threads.
class Passwords {
 public:
  explicit Passwords(std::shared_ptr<PasswordSource> source) : source_(std::move(source)) {}

  // The one to begin with at this server.
  std::optional<std::string> UserOf(const std::string &server);

  // A login, with a number: the known one; or else, and if the known one is that of `refused`, the
  // answer to the question. Whoever comes while another thread's question is open waits, and gets
  // the same answer.
  struct Numbered {
    Login login;
    int number;
    bool is_new;  // asked for just now
  };
  Expected<Numbered> Give(const std::string &server, int refused, const PasswordQuestion &question,
                          const std::atomic<bool> &is_withdrawn);
  // Forgets it.
  void Drop(const std::string &server, int refused);

 private:
  struct Known {
    Login login;
    int number;
  };

  const std::shared_ptr<PasswordSource> source_;
  std::mutex asking_;  // held while somebody is asked
  std::mutex mutex_;   // of the following
  std::map<std::string, Known> known_;
  int last_number_ = 0;
};

#endif
