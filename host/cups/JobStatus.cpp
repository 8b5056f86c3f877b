#include "host/cups/JobStatus.h"

#include "host/base/Localized.h"
#include "host/cups/ServerConnection.h"

namespace {

JobState StateOf(int ipp_state) {
  switch (ipp_state) {
    case IPP_JSTATE_HELD:
      return JobState::kHeld;
    case IPP_JSTATE_PROCESSING:
      return JobState::kProcessing;
    case IPP_JSTATE_STOPPED:
      return JobState::kStopped;
    case IPP_JSTATE_CANCELED:
      return JobState::kCanceled;
    case IPP_JSTATE_ABORTED:
      return JobState::kAborted;
    case IPP_JSTATE_COMPLETED:
      return JobState::kCompleted;
    default:
      return JobState::kPending;
  }
}

// Whether one of the printer's reasons is an error; those that say nothing of their weight are.
bool HasErrors(ipp_attribute_t *reasons) {
  for (int at = 0; at < ippGetCount(reasons); ++at) {
    const std::string_view reason = ippGetString(reasons, at, nullptr);
    const bool is_mere_news = reason == "none" || reason == "connecting-to-device" ||
                              reason.starts_with("cups-") || reason.ends_with("-report") ||
                              reason.ends_with("-warning");
    if (!is_mere_news) return true;
  }
  return false;
}

// A job that waits for a stopped printer is only pending for the server, and one that waits for
// paper is being printed.
void LookAtPrinter(const ServerConnection &server, const std::string &uri, JobStatus &status) {
  IppMessage request = server.Request(IPP_OP_GET_PRINTER_ATTRIBUTES);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.c_str());
  AskFor(request.get(), {"printer-state", "printer-state-message", "printer-state-reasons"});
  const IppMessage answer = server.Ask(std::move(request));
  const bool is_stopped = NumberOf(answer.get(), "printer-state") == IPP_PSTATE_STOPPED;
  status.needs_somebody =
      !is_stopped && status.state == JobState::kProcessing &&
      HasErrors(ippFindAttribute(answer.get(), "printer-state-reasons", IPP_TAG_KEYWORD));
  if (!is_stopped && !status.needs_somebody) return;
  if (is_stopped) status.state = JobState::kStopped;
  status.message = TextOf(answer.get(), "printer-state-message");
}

}  // namespace

Expected<JobStatus> FetchStatus(const ServerConnection &server, int job) {
  IppMessage request = server.Request(IPP_OP_GET_JOB_ATTRIBUTES);
  const std::string uri = "ipp://localhost/jobs/" + std::to_string(job);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
  AskFor(request.get(), {"job-state", "job-printer-state-message", "job-printer-uri"});
  const IppMessage answer = server.Ask(std::move(request), "/jobs/");
  if (answer == nullptr) {
    return server.Refused(Localized("the print server %1 does not tell about job %3: %2"),
                          std::to_string(job));
  }
  JobStatus status;
  status.state = StateOf(NumberOf(answer.get(), "job-state"));
  status.message = TextOf(answer.get(), "job-printer-state-message");
  if (status.state == JobState::kPending || status.state == JobState::kProcessing) {
    LookAtPrinter(server, TextOf(answer.get(), "job-printer-uri"), status);
  }
  return status;
}

std::string JobStatus::HowItEnded(const std::string &id) const {
  if (state == JobState::kCompleted) return Localized("%1 was printed", {id});
  if (state == JobState::kAborted) {
    return message.empty() ? Localized("%1 was aborted", {id})
                           : Localized("%1 was aborted: %2", {id, message});
  }
  return message.empty() ? Localized("%1 was canceled", {id})
                         : Localized("%1 was canceled: %2", {id, message});
}
