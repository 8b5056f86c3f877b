#include "host/cups/Authentication.h"

#include <utility>

#include "host/base/Localized.h"

namespace {

constexpr int kMostWrong = 3;

}  // namespace

Authentication::Authentication(std::shared_ptr<Passwords> passwords, Purpose purpose,
                               std::string queue)
    : passwords_(std::move(passwords)), purpose_(purpose), queue_(std::move(queue)) {}

void Authentication::Begin(const std::string &server) {
  server_ = server;
  // Otherwise libcups would ask on the terminal.
  cupsSetPasswordCB2(
      [](const char *, http_t *connection, const char *, const char *, void *authentication) {
        return static_cast<Authentication *>(authentication)->Answer(connection);
      },
      this);
  // Whose jobs these are, is asked also where no password is.
  if (passwords_ == nullptr) return;
  if (const auto user = passwords_->UserOf(server)) cupsSetUser(user->c_str());
}

const char *Authentication::Answer(const http_t *connection) {
  if (connection != connection_) return nullptr;
  is_asking_ = true;
  Expected<Login> login = NextLogin();
  waits_since_ = Clock::now();
  is_asking_ = false;
  if (!login) {
    failure_ = login.failure();
    return nullptr;
  }
  login_ = *login;
  cupsSetUser(login_.user.c_str());
  return login_.password.c_str();
}

// libcups tries each twice before it asks again.
Expected<Login> Authentication::NextLogin() {
  if (passwords_ == nullptr) return NoPasswordGiven();
  if (was_asked_for_ && ++wrong_ == kMostWrong) {
    passwords_->Drop(server_, number_);
    return Failure{Localized("it wants a password, and three were wrong"),
                   /*is_unanswered=*/false, /*wants_password=*/true};
  }
  Expected<Passwords::Numbered> given =
      passwords_->Give(server_, number_, Question(), is_withdrawn_);
  if (!given) return given.failure();
  number_ = given->number;
  was_asked_for_ = given->is_new;
  return given->login;
}

PasswordQuestion Authentication::Question() const {
  PasswordQuestion question{.reason = "", .mistake = "", .user = cupsUser()};
  switch (purpose_) {
    case Purpose::kPrinting:
      question.reason =
          Localized("the print server %1 wants a password for printing on %2", {server_, queue_});
      break;
    case Purpose::kAdministration:
      question.reason = Localized(
          "the print server %1 wants the password of an administrator for changing the queue %2",
          {server_, queue_});
      break;
    case Purpose::kAnswer:
      question.reason =
          Localized("the print server %1 wants a password before it answers", {server_});
      break;
  }
  if (number_ != 0) {
    question.mistake = Localized("%1 may not do this, or the password is wrong", {login_.user});
  }
  return question;
}
