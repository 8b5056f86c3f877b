#include "host/command/Request.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <nlohmann/json.hpp>

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kLongest = 128 * 1024;

Failure NoRequest() { return {"the request is no line with a JSON array of texts"}; }

bool CanRead(int stream, Clock::time_point end) {
  for (;;) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    pollfd input = {stream, POLLIN, 0};
    const int ready = poll(&input, 1, static_cast<int>(std::max<long long>(left, 0)));
    if (ready >= 0 || errno != EINTR) return ready > 0;
  }
}

Expected<std::optional<RequestedArguments>> Parsed(const std::string &line) {
  const auto json = nlohmann::json::parse(line, nullptr, /*allow_exceptions=*/false);
  if (!json.is_array()) return NoRequest();
  RequestedArguments arguments;
  for (const auto &argument : json) {
    if (!argument.is_string()) return NoRequest();
    arguments.push_back(argument.get<std::string>());
  }
  return std::optional(std::move(arguments));
}

}  // namespace

// Byte by byte: what follows the line is not ours.
Expected<std::optional<RequestedArguments>> AwaitRequest(int stream,
                                                         std::chrono::milliseconds limit) {
  const Clock::time_point end = Clock::now() + limit;
  std::string line;
  while (CanRead(stream, end)) {
    char byte = 0;
    const ssize_t count = read(stream, &byte, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    if (byte == '\n') return Parsed(line);
    line += byte;
    if (line.size() > kLongest) return NoRequest();
  }
  return std::optional<RequestedArguments>();
}
