#include "host/pages/ChildProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>

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

[[noreturn]] void Become(Prepared &prepared, pid_t parent) {
  EndWithParent(parent);
  const rlimit limits = {prepared.seconds, prepared.seconds + 1};
  setrlimit(RLIMIT_CPU, &limits);
  UseAs(STDIN_FILENO, "/dev/null", O_RDONLY);
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

// What the program has started may live on without it.
void EndAll(int) { kill(0, SIGKILL); }

// Starts the program, waits for its end and tells of it: the platform may take the ends of this
// program's own children away from it.
[[noreturn]] void Supervise(Prepared &prepared, int answer, pid_t parent) {
  setpgid(0, 0);
  signal(SIGCHLD, SIG_DFL);
  signal(SIGTERM, EndAll);
  EndWithParent(parent);
  const pid_t self = getpid();
  const pid_t child = fork();
  if (child == 0) Become(prepared, self);
  int status = 127 << 8;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  (void)!write(answer, &status, sizeof status);
  _exit(0);
}

ChildEnd EndOf(int status) {
  if (!WIFSIGNALED(status)) return {ChildEnd::Kind::kExited, WEXITSTATUS(status)};
  if (WTERMSIG(status) == SIGXCPU) return {ChildEnd::Kind::kTookTooLong, SIGXCPU};
  return {ChildEnd::Kind::kKilled, WTERMSIG(status)};
}

ChildEnd WaitFor(int answer, milliseconds limit, const std::atomic<bool> &cancel) {
  const auto end = Clock::now() + limit;
  while (!cancel) {
    pollfd ready = {answer, POLLIN, 0};
    if (poll(&ready, 1, static_cast<int>(kLook.count())) > 0) {
      int status = SIGKILL;  // where nobody is left to tell
      (void)!read(answer, &status, sizeof status);
      return EndOf(status);
    }
    if (Clock::now() >= end) return {ChildEnd::Kind::kTookTooLong, 0};
  }
  return {ChildEnd::Kind::kCanceled, 0};
}

}  // namespace

Expected<ChildEnd> Run(const ChildProgram &program, const std::atomic<bool> &cancel) {
  const auto failure = [&program] {
    return Failure{Localized("cannot run %1: %2", {program.path.string(), std::strerror(errno)})};
  };
  Prepared prepared = Prepare(program);
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return failure();
  const pid_t parent = getpid();
  const pid_t supervisor = fork();
  if (supervisor == 0) Supervise(prepared, ends[1], parent);
  close(ends[1]);
  if (supervisor < 0) {
    close(ends[0]);
    return failure();
  }
  setpgid(supervisor, supervisor);
  const ChildEnd end = WaitFor(ends[0], program.limit, cancel);
  close(ends[0]);
  kill(-supervisor, SIGKILL);  // whatever they have left behind
  while (waitpid(supervisor, nullptr, 0) < 0 && errno == EINTR) continue;
  return end;
}
