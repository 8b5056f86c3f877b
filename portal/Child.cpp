#include "portal/Child.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

constexpr int kCannotRun = 127;

// Whoever is killed takes it along; a program may still tidy up.
void EndWithParent(pid_t parent, int signal) {
  prctl(PR_SET_PDEATHSIG, signal);
  if (getppid() != parent) _exit(kCannotRun);
}

// As they are for programs that people start: this process waits for signals in its own way.
void RestoreSignals() {
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  std::signal(SIGPIPE, SIG_DFL);
}

[[noreturn]] void Become(const std::vector<char *> &command, const char *out) {
  const int in = open("/dev/null", O_RDONLY);
  const int file = open(out, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (in < 0 || file < 0 || dup2(in, STDIN_FILENO) < 0 || dup2(file, STDOUT_FILENO) < 0) {
    _exit(kCannotRun);
  }
  close(in);
  close(file);
  execv(command.front(), command.data());
  _exit(kCannotRun);
}

}  // namespace

Child Child::Run(const std::vector<std::string> &command, const std::filesystem::path &out) {
  std::vector<std::string> words = command;
  std::vector<char *> pointers;
  for (std::string &word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const pid_t parent = getpid();
  const pid_t process = fork();
  if (process == 0) {
    RestoreSignals();
    EndWithParent(parent, SIGTERM);
    Become(pointers, out.c_str());
  }
  return Child(process);
}

Child Child::Work(const std::function<int()> &work) {
  const pid_t parent = getpid();
  const pid_t process = fork();
  if (process == 0) {
    RestoreSignals();
    EndWithParent(parent, SIGKILL);
    _exit(work());  // without tearing down what is its parent's
  }
  return Child(process);
}

Child::Child(pid_t process)
    : process_(process),
      end_(process > 0 ? static_cast<int>(syscall(SYS_pidfd_open, process, 0)) : -1) {}

Child::Child(Child &&other) noexcept
    : process_(std::exchange(other.process_, 0)), end_(std::move(other.end_)) {}

Child::~Child() { Signal(SIGTERM); }

std::optional<int> Child::TakeStatus() {
  if (process_ < 0) return kCannotRun;
  int status = 0;
  if (process_ == 0 || waitpid(process_, &status, WNOHANG) != process_) return std::nullopt;
  process_ = 0;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void Child::Signal(int number) const {
  if (process_ > 0) kill(process_, number);
}
