// Common information that is not ready.

#ifndef TESTS_PLUGIN_NOTREADY_H
#define TESTS_PLUGIN_NOTREADY_H

/// While one exists, every common information says that it is not ready, so that no print ticket
/// and no view controller can be made.
class NotReady {
 public:
  NotReady();
  ~NotReady();
  NotReady(const NotReady &) = delete;
  NotReady &operator=(const NotReady &) = delete;
};

#endif
