// Why a verb does not do what it was asked for.

#ifndef HOST_COMMAND_REFUSAL_H
#define HOST_COMMAND_REFUSAL_H

#include <string>

#include "host/base/Messages.h"
#include "host/command/Commands.h"

struct Refusal {
  ExitStatus status;
  std::string message;
};

// Says so; the answer is the exit status.
inline int Refuse(const Refusal &refusal) {
  Complain(refusal.message);
  return refusal.status;
}

#endif
