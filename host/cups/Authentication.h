// How one operation shows its server who it is for.
//
// libcups asks for a password by calling back in the middle of a request, on the thread of the
// operation, on which its callback and its user's name are settings; so this is where a login that
// the session knows gets to the later requests, each on a thread and a connection of its own.
// Kerberos, and what a server on the same machine believes without a password, come before that and
// are libcups' own matter. So is encryption: a password is handed over only when libcups asks for
// it, and it does so after it has seen to what the server and the user's settings want encrypted.

#ifndef HOST_CUPS_AUTHENTICATION_H
#define HOST_CUPS_AUTHENTICATION_H

#include <cups/cups.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "host/cups/Passwords.h"

// Shared by the thread of an operation and the one that waits for it.
class Authentication {
 public:
  using Clock = std::chrono::steady_clock;

  // What a password is wanted for.
  enum class Purpose { kAnswer, kPrinting, kAdministration };

  // Without passwords there is nobody to ask.
  Authentication(std::shared_ptr<Passwords> passwords, Purpose purpose, std::string queue = "");

  // On the thread of the operation, for its one connection:

  // Before it connects to the server; what libcups asks for on this thread from now on, is answered
  // here, so the thread must not outlive the object.
  void Begin(const std::string &server);
  // Nobody but this server gets to know a password.
  void UseFor(const http_t *connection) { connection_ = connection; }
  // Why the server has got no password, or none that it takes.
  const std::optional<Failure> &failure() const { return failure_; }

  // On any thread:

  // Nobody wants the answer of the operation any more.
  void Withdraw() { is_withdrawn_ = true; }
  // The time since which only the server is waited for: the beginning, or the end of the last
  // question; now, as long as somebody is asked.
  Clock::time_point waits_since() const { return is_asking_ ? Clock::now() : waits_since_.load(); }

 private:
  const char *Answer(const http_t *connection);
  Expected<Login> NextLogin();
  PasswordQuestion Question() const;

  const std::shared_ptr<Passwords> passwords_;
  const Purpose purpose_;
  const std::string queue_;
  std::string server_;
  const http_t *connection_ = nullptr;
  Login login_;     // as libcups has it
  int number_ = 0;  // its
  bool was_asked_for_ = false;
  int wrong_ = 0;
  std::optional<Failure> failure_;

  std::atomic<bool> is_withdrawn_ = false;
  std::atomic<bool> is_asking_ = false;
  std::atomic<Clock::time_point> waits_since_ = Clock::now();
};

#endif
