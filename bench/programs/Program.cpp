#include "bench/programs/Program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>

namespace {

[[noreturn]] void GiveUp(const std::string &program, const std::string &reason) {
  std::cerr << program << ' ' << reason << '\n';
  std::exit(1);
}

std::vector<std::string> Variables(const EnvironmentChanges &changes) {
  std::vector<std::string> variables;
  for (char **variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    if (!changes.contains(text.substr(0, text.find('=')))) variables.push_back(text);
  }
  for (const auto &[name, value] : changes) {
    if (value) variables.push_back(name + '=' + *value);
  }
  return variables;
}

std::vector<char *> Pointers(std::vector<std::string> &strings) {
  std::vector<char *> pointers;
  pointers.reserve(strings.size() + 1);
  for (std::string &string : strings) pointers.push_back(string.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

Program::Program(std::vector<std::string> command, const EnvironmentChanges &changes)
    : name_(command.front()) {
  std::vector<std::string> variables = Variables(changes);
  const std::vector<char *> arguments = Pointers(command);
  const std::vector<char *> environment = Pointers(variables);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  begin_ = Clock::now();
  const int error =
      posix_spawnp(&pid_, name_.c_str(), &actions, nullptr, arguments.data(), environment.data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) GiveUp(name_, std::string("cannot be started: ") + strerror(error));
}

Program::~Program() {
  if (pid_ < 0) return;
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
}

double Program::SecondsUntil(Clock::time_point when) const {
  return std::chrono::duration<double>(when - begin_).count();
}

double Program::PeakMemory() const {
  std::ifstream file("/proc/" + std::to_string(pid_) + "/status");
  for (std::string word; file >> word;) {
    double kibibytes = 0;
    if (word == "VmHWM:" && file >> kibibytes) return kibibytes * 1024;
  }
  GiveUp(name_, "has ended");
}

double Program::SecondsUntilEnd() {
  int status = 0;
  waitpid(pid_, &status, 0);
  const auto end = Clock::now();
  pid_ = -1;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) GiveUp(name_, "has failed");
  return SecondsUntil(end);
}
