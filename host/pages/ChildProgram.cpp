#include "host/pages/ChildProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <utility>

#include "host/base/Localized.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kLook(20);

// All that a process needs between its beginning and the program: other threads may have held any
// lock when it began, so nothing is made there.
struct Prepared {
  std::vector<std::string> texts;
  std::vector<char *> arguments;
  std::vector<char *> environment;
  std::string out, log;
  rlim_t seconds = 0;
};

std::vector<char *> Pointers(std::vector<std::string> &texts, size_t begin, size_t end) {
  std::vector<char *> pointers;
  for (size_t at = begin; at < end; ++at) pointers.push_back(texts[at].data());
  pointers.push_back(nullptr);
  return pointers;
}

Prepared Prepare(const ChildProgram &program) {
  Prepared prepared;
  std::vector<std::string> &texts = prepared.texts;
  texts.push_back(program.path.string());
  texts.insert(texts.end(), program.arguments.begin(), program.arguments.end());
  const size_t arguments = texts.size();
  for (char **variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    if (!program.environment.contains(text.substr(0, text.find('=')))) texts.push_back(text);
  }
  for (const auto &[name, value] : program.environment) texts.push_back(name + '=' + value);
  prepared.arguments = Pointers(texts, 0, arguments);
  prepared.environment = Pointers(texts, arguments, texts.size());
  prepared.out = program.out.string();
  prepared.log = program.log.string();
  prepared.seconds =
      static_cast<rlim_t>(std::chrono::ceil<std::chrono::seconds>(program.limit).count());
  return prepared;
}

void EndWithParent(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) _exit(1);
}

void UseAs(int stream, const std::string &path, int flags) {
  const int file = open(path.c_str(), flags, 0600);
  if (file < 0 || dup2(file, stream) < 0) _exit(127);
}

// Where a supervisor has what it shares with this program; it has nothing else open.
enum SupervisorStream { kControl = STDERR_FILENO + 1, kInput, kFirstFree };

[[noreturn]] void Become(Prepared &prepared, pid_t parent) {
  EndWithParent(parent);
  const rlimit limits = {prepared.seconds, prepared.seconds + 1};
  setrlimit(RLIMIT_CPU, &limits);
  if (dup2(kInput, STDIN_FILENO) < 0) _exit(127);
  UseAs(STDOUT_FILENO, prepared.out, O_WRONLY | O_CREAT | O_TRUNC);
  UseAs(STDERR_FILENO, prepared.log, O_WRONLY | O_CREAT | O_TRUNC);
  close_range(STDERR_FILENO + 1, UINT_MAX, 0);
  for (const int number : {SIGPIPE, SIGINT, SIGTERM, SIGHUP, SIGCHLD}) signal(number, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  execve(prepared.arguments[0], prepared.arguments.data(), prepared.environment.data());
  _exit(127);
}

// Other threads may have started programs at the same time: where one of their supervisors kept
// this one's streams open, nobody would learn of an end.
void KeepAlone(int control, int input) {
  const int first = fcntl(control, F_DUPFD, kFirstFree), other = fcntl(input, F_DUPFD, kFirstFree);
  if (dup2(first, kControl) < 0 || dup2(other, kInput) < 0) _exit(1);
  close_range(kFirstFree, UINT_MAX, 0);
}

// Until the program ends, or the one who asked for it; whether this one ends first.
bool Outlives(pid_t child) {
  const int end = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
  if (end < 0) return false;
  pollfd ready[] = {{end, POLLIN, 0}, {kControl, POLLRDHUP, 0}};
  while (poll(ready, 2, -1) < 0 && errno == EINTR) continue;
  return ready[0].revents == 0;
}

// Starts the program, waits for its end and tells of it: the platform may take the ends of this
// program's own children away from it. What the program has started may live on without it.
[[noreturn]] void Supervise(Prepared &prepared, int control, int input) {
  setpgid(0, 0);
  signal(SIGCHLD, SIG_DFL);
  signal(SIGTERM, SIG_DFL);
  KeepAlone(control, input);
  const pid_t self = getpid();
  const pid_t child = fork();
  if (child == 0) Become(prepared, self);
  close(kInput);
  if (child > 0 && Outlives(child)) kill(0, SIGKILL);
  int status = 127 << 8;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  (void)!send(kControl, &status, sizeof status, MSG_NOSIGNAL);
  _exit(0);
}

ChildEnd EndOf(int status) {
  if (!WIFSIGNALED(status)) return {ChildEnd::Kind::kExited, WEXITSTATUS(status)};
  if (WTERMSIG(status) == SIGXCPU) return {ChildEnd::Kind::kTookTooLong, SIGXCPU};
  return {ChildEnd::Kind::kKilled, WTERMSIG(status)};
}

}  // namespace

Expected<ChildEnd> Run(const ChildProgram &program, const std::atomic<bool> &cancel) {
  Expected<RunningChild> running = RunningChild::Start(program);
  if (!running) return running.failure();
  running->CloseInput();
  return running->Wait(program.limit, cancel);
}

Expected<RunningChild> RunningChild::Start(const ChildProgram &program) {
  Prepared prepared = Prepare(program);
  int control[2] = {-1, -1}, input[2] = {-1, -1};
  const bool has_streams = socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, control) == 0 &&
                           socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, input) == 0;
  const pid_t supervisor = has_streams ? fork() : -1;
  if (supervisor == 0) Supervise(prepared, control[1], input[1]);
  const Failure failure{
      Localized("cannot run %1: %2", {program.path.string(), std::strerror(errno)})};
  for (const int end : {control[1], input[1]}) close(end);
  if (supervisor < 0) {
    for (const int end : {control[0], input[0]}) close(end);
    return failure;
  }
  setpgid(supervisor, supervisor);
  return RunningChild(supervisor, control[0], input[0]);
}

RunningChild::RunningChild(RunningChild &&other) noexcept
    : supervisor_(std::exchange(other.supervisor_, 0)),
      control_(other.control_),
      input_(other.input_) {}

RunningChild::~RunningChild() {
  if (supervisor_ == 0) return;
  close(input_);
  close(control_);
  kill(-supervisor_, SIGKILL);  // whatever they have left behind
  while (waitpid(supervisor_, nullptr, 0) < 0 && errno == EINTR) continue;
}

bool RunningChild::Tell(std::string_view text) const {
  while (!text.empty()) {
    const ssize_t told = send(input_, text.data(), text.size(), MSG_NOSIGNAL);
    if (told < 0 && errno == EINTR) continue;
    if (told < 0) return false;
    text.remove_prefix(static_cast<size_t>(told));
  }
  return true;
}

void RunningChild::CloseInput() const { shutdown(input_, SHUT_WR); }

ChildEnd RunningChild::Wait(milliseconds limit, const std::atomic<bool> &cancel) const {
  const auto end = Clock::now() + limit;
  while (!cancel) {
    pollfd ready = {control_, POLLIN, 0};
    if (poll(&ready, 1, static_cast<int>(kLook.count())) > 0) {
      int status = SIGKILL;  // where nobody is left to tell
      (void)!read(control_, &status, sizeof status);
      return EndOf(status);
    }
    if (Clock::now() >= end) return {ChildEnd::Kind::kTookTooLong, 0};
  }
  return {ChildEnd::Kind::kCanceled, 0};
}
