#include "bench/programs/LeftBehind.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <string>

namespace {

std::set<pid_t> Children() {
  std::ifstream list("/proc/self/task/" + std::to_string(getpid()) + "/children");
  std::set<pid_t> children;
  for (pid_t child = 0; list >> child;) children.insert(child);
  return children;
}

}  // namespace

LeftBehind::LeftBehind() : before_(Children()) { prctl(PR_SET_CHILD_SUBREAPER, 1); }

LeftBehind::~LeftBehind() {
  for (const pid_t child : Children()) {
    if (!before_.contains(child)) kill(child, SIGTERM);
  }
}
