// The print portal of the desktop, with the dialog of pdeprint.

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <iostream>
#include <string_view>

#include "portal/bus/PortalBus.h"

namespace {

using Clock = Service::Clock;

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr std::string_view kDocumentLimit = "--document-limit=";
constexpr char kUsage[] =
    "usage: pdeprint-portal [--document-limit=SECONDS]\n"
    "The session's bus starts it. Applications may take so many seconds, 60 unless given, to hand\n"
    "over a document.\n";

// Readable when this process is asked to end: what is open is closed then.
Descriptor WaitForSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals, number);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  std::signal(SIGPIPE, SIG_IGN);
  return Descriptor(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

int MillisecondsUntil(std::optional<Clock::time_point> time) {
  if (!time) return -1;
  // A moment later rather than earlier: else it is waited for again and again.
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*time - Clock::now()).count();
  return static_cast<int>(std::clamp<decltype(left)>(left, 0, 1 << 30));
}

std::optional<Clock::time_point> Earlier(std::optional<Clock::time_point> one,
                                         std::optional<Clock::time_point> other) {
  if (!one || !other) return one ? one : other;
  return std::min(*one, *other);
}

// Until this process is asked to end: 0; or the bus has gone: the reason in the system's numbers.
int Serve(Service &service, PortalBus &bus, const Descriptor &signals) {
  for (;;) {
    if (const int reason = bus.Process(); reason != 0) return reason;
    service.Attend();
    std::vector<pollfd> waited = {{signals.get(), POLLIN, 0}, {bus.descriptor(), bus.events(), 0}};
    for (const int end : service.Ends()) waited.push_back({end, POLLIN, 0});
    const auto next = Earlier(service.NextTime(), bus.NextTime());
    if (poll(waited.data(), waited.size(), MillisecondsUntil(next)) < 0 && errno != EINTR) {
      return errno;
    }
    if (waited.front().revents != 0) return 0;
  }
}

int Run(const ServiceOptions &options) {
  const Descriptor signals = WaitForSignals();
  Service service(options);
  PortalBus bus(service);
  int reason = bus.Connect();
  if (reason == 0) reason = Serve(service, bus, signals);
  if (reason == 0) return 0;
  std::cerr << "pdeprint-portal: session bus: "
            << (reason == EEXIST ? "another print portal has the name" : std::strerror(reason))
            << '\n';
  return kFailed;
}

bool ReadLimit(std::string_view text, ServiceOptions &options) {
  int seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (error != std::errc() || end != text.data() + text.size() || seconds < 1) return false;
  options.document_limit = std::chrono::seconds(seconds);
  return true;
}

}  // namespace

int main(int argc, char **argv) {
  ServiceOptions options;
  for (int at = 1; at < argc; ++at) {
    const std::string_view argument = argv[at];
    if (argument == "--help") {
      std::cout << kUsage;
      return 0;
    }
    if (!argument.starts_with(kDocumentLimit) ||
        !ReadLimit(argument.substr(kDocumentLimit.size()), options)) {
      std::cerr << kUsage;
      return kWrongUsage;
    }
  }
  return Run(options);
}
