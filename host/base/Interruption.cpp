#include "host/base/Interruption.h"

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<Interruption *> innermost = nullptr;
std::atomic<bool> came = false;

}  // namespace

void Interruption::SetFlags(int) {
  came = true;
  for (Interruption *one = innermost; one != nullptr; one = one->outer_) one->flag_ = true;
}

Interruption::Interruption(std::atomic<bool> &flag) : flag_(flag), outer_(innermost) {
  if (outer_ == nullptr) came = false;
  innermost = this;
  struct sigaction action = {};
  action.sa_handler = SetFlags;
  action.sa_flags = SA_RESTART;
  for (int i = 0; i < 3; ++i) {
    sigaction(kSignals[i], nullptr, &before_[i]);
    // Who started the program wants it to go on: nohup, or a shell's job in the background.
    if (before_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

Interruption::~Interruption() {
  for (int i = 0; i < 3; ++i) sigaction(kSignals[i], &before_[i], nullptr);
  innermost = outer_;
}

bool Interruption::Came() { return came; }
