#include "host/base/Interruption.h"

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<std::atomic<bool> *> flag_to_set = nullptr;
std::atomic<bool> came = false;

void SetFlag(int) {
  came = true;
  if (std::atomic<bool> *flag = flag_to_set) *flag = true;
}

}  // namespace

Interruption::Interruption(std::atomic<bool> &flag) {
  came = false;
  flag_to_set = &flag;
  struct sigaction action = {};
  action.sa_handler = SetFlag;
  action.sa_flags = SA_RESTART;
  for (int i = 0; i < 3; ++i) {
    sigaction(kSignals[i], nullptr, &before_[i]);
    // Who started the program wants it to go on: nohup, or a shell's job in the background.
    if (before_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

Interruption::~Interruption() {
  for (int i = 0; i < 3; ++i) sigaction(kSignals[i], &before_[i], nullptr);
  flag_to_set = nullptr;
}

bool Interruption::Came() { return came; }
