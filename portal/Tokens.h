// Jobs that people have accepted, and whose documents the application still has to make.

#ifndef PORTAL_TOKENS_H
#define PORTAL_TOKENS_H

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "host/pages/PrivateFolder.h"

// Who asks.
struct Caller {
  std::string sender;       // its name on the bus: the portal's
  std::string client;       // for whom it asks, by the name on the bus
  std::string application;  // and by what the portal knows of it; empty: nothing
  bool operator==(const Caller &) const = default;
};

struct AcceptedJob {
  std::string queue;
  PrivateFolder folder;  // with the job's ticket
};

class Tokens {
 public:
  using Clock = std::chrono::steady_clock;

  static constexpr std::chrono::hours kLifetime{1};
  static constexpr size_t kMost = 64;  // the oldest gives way

  // A number that nobody can guess and that answers for the job once, to this caller alone. Never
  // 0, which applications send that have none.
  uint32_t Give(const Caller &caller, AcceptedJob job, Clock::time_point now);

  // The job, once. None: there is no such number, or none of this caller's, or it is too old.
  std::optional<AcceptedJob> Take(uint32_t token, const Caller &caller, Clock::time_point now);

  // Drops all of a caller that has this name on the bus, which has gone.
  void Forget(const std::string &name);
  void DropOld(Clock::time_point now);
  // When there will be something to drop; none: nothing is there.
  std::optional<Clock::time_point> NextEnd() const;

  size_t size() const { return jobs_.size(); }

 private:
  struct Entry {
    Caller caller;
    AcceptedJob job;
    Clock::time_point end;
  };
  std::map<uint32_t, Entry>::const_iterator Oldest() const;

  std::map<uint32_t, Entry> jobs_;
};

#endif
