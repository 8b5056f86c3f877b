// A filter of the print system that prints pictures in the way of documents (filter(7)): they become
// PDF, get their numbers there, and then what the printer takes. By itself the print system would
// make pixels of them at once, or send them as they are.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "filter/Descriptor.h"
#include "filter/Log.h"
#include "filter/pictures/Steps.h"

namespace {

std::string Variable(const char *name, const char *otherwise) {
  const char *value = std::getenv(name);
  return value == nullptr ? otherwise : value;
}

// Beside this program, or where the print server has its own.
std::string PathOf(const std::string &program) {
  if (program.starts_with('/')) return program;
  char self[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", self, sizeof self);
  if (length > 0) {
    const std::string path(self, static_cast<size_t>(length));
    std::string beside = path.substr(0, path.rfind('/') + 1) + program;
    if (access(beside.c_str(), X_OK) == 0) return beside;
  }
  return Variable("CUPS_SERVERBIN", "/usr/lib/cups") + "/filter/" + program;
}

// All that have been started; the one who ends this program ends them.
constexpr size_t kMost = 8;
volatile pid_t started[kMost];

void EndAll(int signal) {
  for (const pid_t process : started) {
    if (process > 0) kill(process, signal);
  }
}

// 0, or what errno says.
int Start(const std::string &program, char **arguments, int in, int out, pid_t &process) {
  posix_spawn_file_actions_t streams;
  posix_spawn_file_actions_init(&streams);
  posix_spawn_file_actions_adddup2(&streams, in, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&streams, out, STDOUT_FILENO);
  const int error =
      posix_spawn(&process, program.c_str(), &streams, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&streams);
  return error;
}

// Whether the program did its work, or had nobody who wanted the rest of it.
bool HasSucceeded(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return false;
  }
  if (WIFSIGNALED(status)) return WTERMSIG(status) == SIGPIPE;
  return WEXITSTATUS(status) == 0;
}

// Each reads what the one before it writes.
bool RunAll(const std::vector<std::string> &programs, std::vector<char *> arguments) {
  arguments.push_back(nullptr);
  Descriptor in(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 10));
  bool succeeded = true;
  for (size_t at = 0; at < programs.size() && at < kMost; ++at) {
    int ends[2] = {-1, -1};
    const bool is_last = at + 1 == programs.size();
    if (!is_last && pipe2(ends, O_CLOEXEC) != 0) {
      LogError("No pipe can be made: " + SystemReason());
      return false;
    }
    const Descriptor next(ends[0]), out(ends[1]);
    pid_t process = 0;
    errno = Start(programs[at], arguments.data(), in.get(),
                  is_last ? STDOUT_FILENO : out.get(), process);
    if (errno != 0) {
      LogError("The filter " + programs[at] + " cannot be started: " + SystemReason());
      succeeded = false;
      break;
    }
    started[at] = process;
    in = Descriptor(fcntl(next.get(), F_DUPFD_CLOEXEC, 10));
    arguments.resize(6);  // the others get no file
    arguments.push_back(nullptr);
  }
  in = Descriptor();
  for (const pid_t process : started) {
    if (process > 0 && !HasSucceeded(process)) succeeded = false;
  }
  return succeeded;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc < 6 || argc > 7) {
    std::cerr
        << "ERROR: usage: backgroundnumbers-pictures JOB USER TITLE COPIES OPTIONS [FILE]\n";
    return 1;
  }
  struct sigaction action = {};
  action.sa_handler = EndAll;
  sigaction(SIGTERM, &action, nullptr);
  std::vector<std::string> programs =
      StepsTo(Variable("FINAL_CONTENT_TYPE", ""), RasterDriver(std::getenv("PPD")),
              [](const char *program) { return access(PathOf(program).c_str(), X_OK) == 0; });
  if (programs.empty()) {
    LogError("There is no way for pictures to this printer: a program that makes pixels of PDF "
             "documents is missing, or the printer's own");
    return 1;
  }
  for (std::string &program : programs) program = PathOf(program);
  return RunAll(programs, std::vector<char *>(argv, argv + argc)) ? 0 : 1;
}
