#include "tests/support/PseudoTerminal.h"

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>

namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

PseudoTerminal::PseudoTerminal(const std::vector<std::string> &command,
                               const EnvironmentChanges &environment) {
  std::vector<std::string> words = {"env"};
  for (const auto &[name, value] : environment) {
    if (!value) words.insert(words.begin() + 1, {"-u", name});
  }
  for (const auto &[name, value] : environment) {
    if (value) words.push_back(name + '=' + *value);
  }
  words.insert(words.end(), command.begin(), command.end());
  std::vector<char *> arguments;
  for (std::string &word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
  if (pid_ < 0) std::abort();
  if (pid_ > 0) return;
  execvp(arguments.front(), arguments.data());
  _exit(127);
}

PseudoTerminal::~PseudoTerminal() {
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  close(terminal_);
}

void PseudoTerminal::Type(const std::string &keys) const {
  (void)!write(terminal_, keys.data(), keys.size());
}

// False: nothing came for a moment.
bool PseudoTerminal::Receive() {
  pollfd output = {terminal_, POLLIN, 0};
  if (poll(&output, 1, 20) <= 0) return false;
  if ((output.revents & POLLIN) == 0) {
    is_over_ = true;
    return false;
  }
  std::array<char, 4096> bytes;
  const ssize_t count = read(terminal_, bytes.data(), bytes.size());
  for (ssize_t i = 0; i < count; ++i) {
    if (bytes[static_cast<size_t>(i)] != '\r') seen_ += bytes[static_cast<size_t>(i)];
  }
  return count > 0;
}

bool PseudoTerminal::Await(const std::string &text) {
  const auto deadline = Clock::now() + kPatience;
  while (Clock::now() < deadline && !is_over_) {
    const size_t found = seen_.find(text, looked_at_);
    if (found != std::string::npos) {
      looked_at_ = found + text.size();
      return true;
    }
    Receive();
  }
  return false;
}

bool PseudoTerminal::ShowsWhatIsTyped() const {
  termios modes = {};
  return tcgetattr(terminal_, &modes) == 0 && (modes.c_lflag & ECHO) != 0;
}

int PseudoTerminal::Wait() {
  const auto deadline = Clock::now() + kPatience;
  int status = 0;
  while (waitpid(pid_, &status, WNOHANG) == 0) {
    if (Clock::now() > deadline) return -1;
    Receive();
  }
  pid_ = -1;
  while (Receive()) continue;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
