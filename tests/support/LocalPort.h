// TCP ports of this machine for tests.

#ifndef TESTS_SUPPORT_LOCALPORT_H
#define TESTS_SUPPORT_LOCALPORT_H

#include <string>

// A port of 127.0.0.1 that is this object's: nothing listens there, and the system gives it to
// nobody else. A program that is told the number may listen.
class LocalPort {
 public:
  LocalPort();
  ~LocalPort();
  LocalPort(const LocalPort &) = delete;
  LocalPort &operator=(const LocalPort &) = delete;

  int number() const { return number_; }
  std::string address() const;  // "127.0.0.1:PORT"
  int socket() const { return socket_; }

  // A new connection to it, -1 if nothing listens.
  int Connect() const;

 private:
  int socket_;
  int number_;
};

#endif
