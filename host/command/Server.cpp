#include "host/command/Server.h"

#include "host/command/TerminalPasswords.h"

PrintServer ServerOf(const Surroundings &surroundings) {
  static const auto passwords = std::make_shared<Passwords>(std::make_shared<TerminalPasswords>());
  return PrintServer(surroundings.limit, passwords);
}
