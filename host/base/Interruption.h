// Ends asked for from outside (SIGINT, SIGTERM, SIGHUP) while something must first be undone.

#ifndef HOST_BASE_INTERRUPTION_H
#define HOST_BASE_INTERRUPTION_H

#include <atomic>
#include <csignal>

// While the object lives, such a signal sets the flag instead of ending the program. One at a time.
class Interruption {
 public:
  explicit Interruption(std::atomic<bool> &flag);
  ~Interruption();
  Interruption(const Interruption &) = delete;
  Interruption &operator=(const Interruption &) = delete;

  // Whether one came.
  static bool Came();

 private:
  struct sigaction before_[3];
};

#endif
