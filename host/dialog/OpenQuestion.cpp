#include "host/dialog/OpenQuestion.h"

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kLook(20);

}  // namespace

Expected<Login> OpenQuestion::Ask(const PasswordQuestion &question,
                                  const std::atomic<bool> &is_withdrawn) {
  std::unique_lock lock(mutex_);
  open_ = Numbered{++last_number_, question};
  answer_.reset();
  has_answer_ = false;
  while (!has_answer_ && !is_closed_ && !is_withdrawn) changed_.wait_for(lock, kLook);
  open_.reset();
  if (!answer_) return NoPasswordGiven();
  const Login login = *std::exchange(answer_, std::nullopt);
  return login;
}

std::optional<OpenQuestion::Numbered> OpenQuestion::Get() const {
  const std::scoped_lock lock(mutex_);
  return open_;
}

bool OpenQuestion::IsOpen(int number) const {
  const std::scoped_lock lock(mutex_);
  return open_ && open_->number == number;
}

void OpenQuestion::Answer(int number, std::optional<Login> login) {
  const std::scoped_lock lock(mutex_);
  if (!open_ || open_->number != number) return;
  answer_ = std::move(login);
  has_answer_ = true;
  changed_.notify_all();
}

void OpenQuestion::Close() {
  const std::scoped_lock lock(mutex_);
  is_closed_ = true;
  changed_.notify_all();
}
