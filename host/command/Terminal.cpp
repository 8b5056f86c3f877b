#include "host/command/Terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>

#include "host/base/OneLine.h"
#include "host/base/Secret.h"

namespace {

constexpr int kLook = 20;  // ms
constexpr size_t kLongest = 1024;

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

// While it lives, nothing is shown of what is typed.
class Silence {
 public:
  explicit Silence(int terminal) {
    terminal_ = terminal;
    if (tcgetattr(terminal, &modes_) != 0) return;
    Begin();
  }
  ~Silence() {
    if (state_ == State::kSilent) End();
  }
  Silence(const Silence &) = delete;
  Silence &operator=(const Silence &) = delete;

  // Whether a signal has ended it, and the program goes on all the same: it begins anew.
  bool Renew() {
    if (state_ != State::kInterrupted) return false;
    Begin();
    return true;
  }

 private:
  enum class State { kNone, kSilent, kInterrupted };

  static void SetModes(const termios &modes) {
    // Also from the background.
    sigset_t output, before;
    sigemptyset(&output);
    sigaddset(&output, SIGTTOU);
    pthread_sigmask(SIG_BLOCK, &output, &before);
    tcsetattr(terminal_, TCSAFLUSH, &modes);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
  }

  static void Begin() {
    state_ = State::kSilent;
    struct sigaction action = {};
    action.sa_handler = BreakOff;
    action.sa_flags = SA_RESTART;
    sigfillset(&action.sa_mask);
    for (size_t i = 0; i < kSignals.size(); ++i) {
      sigaction(kSignals[i], nullptr, &before_[i]);
      if (before_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
    }
    termios silent = modes_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    silent.c_lflag |= ECHONL;
    SetModes(silent);
  }

  static void End() {
    state_ = State::kNone;
    SetModes(modes_);
    for (size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before_[i], nullptr);
  }

  // The signal does what it did before, once this handler is left.
  static void BreakOff(int signal) {
    if (state_ == State::kSilent) {
      End();
      state_ = State::kInterrupted;
    }
    kill(getpid(), signal);
  }

  static inline volatile sig_atomic_t terminal_ = -1;
  static inline std::atomic<State> state_ = State::kNone;
  static inline termios modes_ = {};
  static inline std::array<struct sigaction, kSignals.size()> before_ = {};
};

}  // namespace

Terminal::Terminal(const std::atomic<bool> &is_over)
    : is_over_(is_over), file_(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC)) {}

Terminal::~Terminal() {
  if (file_ >= 0) close(file_);
}

void Terminal::WriteLine(const std::string &text) const {
  // What servers say may control the terminal.
  const std::string line = "pdeprint: " + OnOneLine(text) + '\n';
  (void)!write(file_, line.data(), line.size());
}

std::optional<std::string> Terminal::Ask(const std::string &question) const {
  return ReadLine(question, [] { return false; });
}

std::optional<std::string> Terminal::AskSecretly(const std::string &question) const {
  Silence silence(file_);
  return ReadLine(question, [&silence] { return silence.Renew(); });
}

std::optional<std::string> Terminal::ReadLine(const std::string &question,
                                              const std::function<bool()> &has_begun_anew) const {
  const std::string text = OnOneLine(question) + ' ';
  const auto ask = [&] { (void)!write(file_, text.data(), text.size()); };
  ask();
  pollfd input = {file_, POLLIN, 0};
  while (!is_over_) {
    const int ready = poll(&input, 1, kLook);
    // What is typed while the program is in the background is for somebody else.
    if (tcgetpgrp(file_) != getpgrp()) {
      if (ready > 0) std::this_thread::sleep_for(std::chrono::milliseconds(kLook));
      continue;
    }
    if (has_begun_anew()) ask();
    if (ready <= 0) continue;
    std::string line(kLongest, '\0');
    const ssize_t length = read(file_, line.data(), line.size());
    if (length < 0 && errno == EINTR) continue;
    const bool is_line = length > 0 && line[static_cast<size_t>(length) - 1] == '\n';
    if (is_line) {
      line.resize(static_cast<size_t>(length) - 1);
      return line;
    }
    Wipe(line);
    return std::nullopt;
  }
  return std::nullopt;
}
