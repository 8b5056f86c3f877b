#include "filter/Apart.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "filter/Descriptor.h"

void EndWithParent(int parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
}

void LimitProcessorTime(std::chrono::seconds limit) {
  const auto seconds = static_cast<rlim_t>(limit.count());
  const rlimit limits = {seconds, seconds + 1};
  setrlimit(RLIMIT_CPU, &limits);
}

std::string RunApart(const std::function<bool()> &work, std::chrono::seconds limit,
                     bool &succeeded) {
  succeeded = false;
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child < 0) return "no process can be started: " + SystemReason();
  if (child == 0) {
    EndWithParent(parent);
    LimitProcessorTime(limit);
    // Without tearing down what took a while to make.
    _exit(work() ? 0 : 1);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return SystemReason();
  }
  if (WIFSIGNALED(status)) {
    return WTERMSIG(status) == SIGXCPU ? "it takes too long"
                                       : std::string("it ends in: ") + strsignal(WTERMSIG(status));
  }
  succeeded = WEXITSTATUS(status) == 0;
  return "";
}
