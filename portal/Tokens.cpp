#include "portal/Tokens.h"

#include <sys/random.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {

// The system has random numbers from its start on, so that it answers in the end.
uint32_t RandomNumber() {
  uint32_t number = 0;
  while (getrandom(&number, sizeof number, 0) != sizeof number) continue;
  return number;
}

}  // namespace

uint32_t Tokens::Give(const Caller &caller, AcceptedJob job, Clock::time_point now) {
  DropOld(now);
  if (jobs_.size() >= kMost) jobs_.erase(Oldest());
  uint32_t token = 0;
  while (token == 0 || jobs_.contains(token)) token = RandomNumber();
  jobs_.emplace(token, Entry{caller, std::move(job), now + kLifetime});
  return token;
}

std::optional<AcceptedJob> Tokens::Take(uint32_t token, const Caller &caller,
                                        Clock::time_point now) {
  DropOld(now);
  const auto found = jobs_.find(token);
  if (found == jobs_.end() || found->second.caller != caller) return std::nullopt;
  AcceptedJob job = std::move(found->second.job);
  jobs_.erase(found);
  return job;
}

void Tokens::Forget(const std::string &name) {
  std::erase_if(jobs_, [&name](const auto &job) {
    const Caller &caller = job.second.caller;
    return caller.sender == name || caller.client == name;
  });
}

void Tokens::DropOld(Clock::time_point now) {
  std::erase_if(jobs_, [now](const auto &job) { return job.second.end <= now; });
}

std::optional<Tokens::Clock::time_point> Tokens::NextEnd() const {
  const auto oldest = Oldest();
  if (oldest == jobs_.end()) return std::nullopt;
  return oldest->second.end;
}

std::map<uint32_t, Tokens::Entry>::const_iterator Tokens::Oldest() const {
  return std::ranges::min_element(jobs_, {}, [](const auto &job) { return job.second.end; });
}
