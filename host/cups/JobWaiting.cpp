#include "host/cups/JobWaiting.h"

#include "host/base/Localized.h"

namespace {

constexpr int kPatience = 5;  // answers in a row that may fail

// A stopped printer's jobs wait until somebody starts it again.
std::string ObstacleIn(const JobStatus &status, const std::string &id) {
  if (status.state == JobState::kHeld) {
    return status.message.empty() ? Localized("%1 is held", {id})
                                  : Localized("%1 is held: %2", {id, status.message});
  }
  if (status.needs_somebody) return status.message;
  if (status.state != JobState::kStopped) return "";
  return status.message.empty() ? Localized("%1 is stopped", {id}) : status.message;
}

}  // namespace

bool JobWaiting::Take(const Expected<JobStatus> &status) {
  if (!status) {
    message_ = status.message();
    if (++failures_ < kPatience && !status.failure().wants_password) return false;
    result_ = status.failure().Reworded(Localized("%1 was sent, but: %2", {id_, status.message()}));
    return true;
  }
  failures_ = 0;
  obstacle_ = ObstacleIn(*status, id_);
  message_ = obstacle_.empty() ? status->message : obstacle_;
  if (!status->HasEnded()) return false;
  if (status->state != JobState::kCompleted) result_ = Failure{status->HowItEnded(id_)};
  return true;
}
