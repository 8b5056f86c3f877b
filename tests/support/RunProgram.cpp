#include "tests/support/RunProgram.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace {

std::vector<std::string> Environment(const EnvironmentChanges &changes) {
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
  for (std::string &string : strings) pointers.push_back(string.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

RunningProgram::RunningProgram(std::vector<std::string> command, const RunOptions &options) {
  // Files, not pipes: services that a program leaves behind may keep its descriptors open.
  const std::string out = options.out.empty() ? (folder_.path() / "out").string() : options.out;
  const std::string err = (folder_.path() / "err").string();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  if (out == "-") {
    posix_spawn_file_actions_addclose(&actions, STDOUT_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
  }
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (!options.folder.empty()) {
    posix_spawn_file_actions_addchdir_np(&actions, options.folder.c_str());
  }
  std::vector<std::string> environment = Environment(options.environment);
  const int error = posix_spawnp(&pid_, command.front().c_str(), &actions, nullptr,
                                 Pointers(command).data(), Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) {
    pid_ = -1;
    ADD_FAILURE() << "cannot start " << command.front() << ": " << strerror(error);
    return;
  }
  end_ = static_cast<int>(syscall(SYS_pidfd_open, pid_, 0));
  if (end_ < 0) ADD_FAILURE() << "cannot watch " << command.front() << ": " << strerror(errno);
}

RunningProgram::~RunningProgram() {
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  if (end_ >= 0) close(end_);
}

void RunningProgram::Signal(int number) const {
  if (pid_ > 0) kill(pid_, number);
}

bool RunningProgram::HasEnded(std::chrono::milliseconds limit) const {
  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + limit;
  pollfd end = {end_, POLLIN, 0};
  // The end of another program interrupts the wait.
  while (Clock::now() < deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    const int ready = poll(&end, 1, static_cast<int>(left.count()) + 1);
    if (ready == 1) return true;
    if (ready < 0 && errno != EINTR) return false;
  }
  return false;
}

RunResult RunningProgram::Wait(std::chrono::milliseconds limit) {
  RunResult result;
  if (pid_ <= 0) return result;
  if (!HasEnded(limit)) {
    result.timed_out = true;
    Signal(SIGKILL);
  }
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) continue;
  pid_ = -1;
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  result.out = ContentOf(folder_.path() / "out");
  result.err = ContentOf(folder_.path() / "err");
  return result;
}

RunResult RunProgram(const std::vector<std::string> &command, const RunOptions &options) {
  return RunningProgram(command, options).Wait();
}

void CopyPdeprint(const std::filesystem::path &folder) {
  std::filesystem::copy_file(kPdeprint, folder / "pdeprint");
  std::filesystem::copy_file(BINARY_DIRECTORY "/libPrintCore.so.1", folder / "libPrintCore.so.1");
}

RunResult RunPdeprint(const std::vector<std::string> &arguments, RunOptions options) {
  options.environment.emplace("DISPLAY", std::nullopt);
  options.environment.emplace("LANGUAGE", "en");
  std::vector<std::string> command = {kPdeprint};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return RunProgram(command, options);
}
