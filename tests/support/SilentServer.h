// A server that takes connections and never says anything.

#ifndef TESTS_SUPPORT_SILENTSERVER_H
#define TESTS_SUPPORT_SILENTSERVER_H

#include <sys/socket.h>

#include "tests/support/LocalPort.h"

class SilentServer {
 public:
  // The system takes the connections; nobody ever looks at them.
  SilentServer() { listen(port_.socket(), SOMAXCONN); }

  std::string address() const { return port_.address(); }

 private:
  LocalPort port_;
};

#endif
