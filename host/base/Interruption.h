// Ends asked for from outside (SIGINT, SIGTERM, SIGHUP) while something must first be undone.

#ifndef HOST_BASE_INTERRUPTION_H
#define HOST_BASE_INTERRUPTION_H

#include <atomic>
#include <csignal>

// While the object lives, such a signal sets the flag instead of ending the program, and with it
// those of the objects that were made before and still live. They go in the opposite order.
class Interruption {
 public:
  explicit Interruption(std::atomic<bool> &flag);
  ~Interruption();
  Interruption(const Interruption &) = delete;
  Interruption &operator=(const Interruption &) = delete;

  // Whether one came.
  static bool Came();

 private:
  static void SetFlags(int);

  std::atomic<bool> &flag_;
  Interruption *const outer_;
  struct sigaction before_[3];
};

#endif
