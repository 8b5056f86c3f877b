// Asking for passwords on the terminal.

#ifndef HOST_COMMAND_TERMINALPASSWORDS_H
#define HOST_COMMAND_TERMINALPASSWORDS_H

#include "host/cups/Passwords.h"

// Asks on the terminal from which the program was started, whatever its streams are; where there is
// none, nobody is asked. What is typed of a password is not shown; a signal that ends or stops the
// program finds the terminal as it was. Who ends the input instead of answering is not asked again.
class TerminalPasswords : public PasswordSource {
 public:
  Expected<Login> Ask(const PasswordQuestion &question,
                      const std::atomic<bool> &is_withdrawn) override;

 private:
  bool is_refused_ = false;
};

#endif
