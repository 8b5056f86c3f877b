#include "host/cups/Passwords.h"

#include <chrono>
#include <thread>

#include "host/base/Localized.h"

namespace {

// How often the one who waits for another's question looks whether it is still to be answered.
constexpr std::chrono::milliseconds kLook(10);

}  // namespace

Failure NoPasswordGiven() {
  return Failure{Localized("it wants a password, and none was given"),
                 /*is_unanswered=*/false, /*wants_password=*/true};
}

std::optional<std::string> Passwords::UserOf(const std::string &server) {
  const std::scoped_lock lock(mutex_);
  const auto known = known_.find(server);
  if (known == known_.end()) return std::nullopt;
  return known->second.login.user;
}

Expected<Passwords::Numbered> Passwords::Give(const std::string &server, int refused,
                                              const PasswordQuestion &question,
                                              const std::atomic<bool> &is_withdrawn) {
  std::unique_lock asking(asking_, std::try_to_lock);
  while (!asking) {
    if (is_withdrawn) return NoPasswordGiven();
    std::this_thread::sleep_for(kLook);
    (void)asking.try_lock();
  }
  {
    const std::scoped_lock lock(mutex_);
    const auto known = known_.find(server);
    if (known != known_.end() && known->second.number != refused) {
      return Numbered{known->second.login, known->second.number, /*is_new=*/false};
    }
    known_.erase(server);
  }
  if (is_withdrawn) return NoPasswordGiven();
  Expected<Login> login = source_->Ask(question, is_withdrawn);
  if (!login) return login.failure();
  const std::scoped_lock lock(mutex_);
  known_.insert_or_assign(server, Known{*login, ++last_number_});
  return Numbered{*login, last_number_, /*is_new=*/true};
}

void Passwords::Drop(const std::string &server, int refused) {
  const std::scoped_lock lock(mutex_);
  const auto known = known_.find(server);
  if (known != known_.end() && known->second.number == refused) known_.erase(known);
}
