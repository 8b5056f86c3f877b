// The portal's dictionaries in messages of the bus.

#ifndef PORTAL_BUS_WORDS_H
#define PORTAL_BUS_WORDS_H

#include <systemd/sd-bus.h>

#include "portal/Service.h"
#include "portal/Value.h"

// Reads a dictionary of variants where the message stands; negative: there is none.
int ReadDictionary(sd_bus_message *message, Dictionary &dictionary);

// Answers the call.
int SendReply(sd_bus_message *call, const Reply &reply);

#endif
