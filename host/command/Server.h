// The print server as the verbs ask it.

#ifndef HOST_COMMAND_SERVER_H
#define HOST_COMMAND_SERVER_H

#include "host/command/Commands.h"
#include "host/cups/PrintServer.h"

// Passwords are asked for on the terminal, and known for the rest of the run.
PrintServer ServerOf(const Surroundings &surroundings);

#endif
