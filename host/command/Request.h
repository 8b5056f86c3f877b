// A command line that comes later, from another program.

#ifndef HOST_COMMAND_REQUEST_H
#define HOST_COMMAND_REQUEST_H

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"

using RequestedArguments = std::vector<std::string>;

// Waits for one line on a stream, a JSON array of texts. None: the stream has ended, or nothing has
// come in that time. The failure: it is something else, or longer than any command line.
Expected<std::optional<RequestedArguments>> AwaitRequest(int stream,
                                                         std::chrono::milliseconds limit);

#endif
