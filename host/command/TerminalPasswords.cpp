#include "host/command/TerminalPasswords.h"

#include <utility>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/command/Terminal.h"

Expected<Login> TerminalPasswords::Ask(const PasswordQuestion &question,
                                       const std::atomic<bool> &is_withdrawn) {
  if (is_refused_) return NoPasswordGiven();
  Terminal terminal(is_withdrawn);
  if (!terminal.IsThere()) {
    return NoPasswordGiven().Reworded(Localized(
        "it wants a password, and there is no terminal to ask for one on; run this on a terminal"));
  }
  if (!question.mistake.empty()) terminal.WriteLine(question.mistake);
  terminal.WriteLine(question.reason);
  std::optional<std::string> user =
      terminal.Ask(Localized("%1:", {Localized("User name") + " [" + question.user + ']'}));
  std::optional<std::string> password;
  if (user) {
    if (user->empty()) user = question.user;
    password = terminal.AskSecretly(Localized("%1:", {Localized("Password")}));
  }
  if (password) return Login{*user, Secret(std::move(*password))};
  is_refused_ = true;
  return NoPasswordGiven();
}
