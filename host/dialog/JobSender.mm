#include "host/dialog/JobSender.h"

namespace {

double Fraction(const SendingProgress &progress) {
  const long long total = progress.bytes_total;
  return total == 0 ? 0 : static_cast<double>(progress.bytes_sent) / static_cast<double>(total);
}

}  // namespace

JobSender::JobSender(PrintServer server, PasswordWindow &passwords, Callbacks callbacks)
    : server_(std::move(server)), passwords_(passwords), callbacks_(std::move(callbacks)) {}

void JobSender::Send(JobRequest request, std::optional<PagesHere> here) {
  progress_ = std::make_shared<PrintingProgress>();
  interruption_ = std::make_unique<Interruption>(progress_->cancel);
  auto task = std::make_shared<BackgroundTask<Expected<int>>>(
      [server = server_, request = std::move(request), here = std::move(here),
       progress = progress_] { return PrintPages(server, request, here, *progress); });
  poller_ = Poller([this, task] {
    if (!task->HasEnded()) {
      passwords_.AnswerQuestion();
      if (progress_->is_making_pages) {
        callbacks_.making_pages();
      } else {
        callbacks_.sending(Fraction(*progress_));
      }
      return false;
    }
    interruption_.reset();
    progress_.reset();
    Expected<int> job = task->Take();
    if (job) {
      callbacks_.accepted(*job);
    } else {
      callbacks_.refused(job.message());
    }
    return true;
  });
}

void JobSender::Save(SaveRequest request) {
  saving_ = std::make_shared<SavingProgress>();
  interruption_ = std::make_unique<Interruption>(saving_->cancel);
  auto task = std::make_shared<BackgroundTask<Expected<SavedPages>>>(
      [request = std::move(request), progress = saving_] { return SavePages(request, *progress); });
  poller_ = Poller([this, task] {
    if (!task->HasEnded()) {
      callbacks_.making_pages();
      return false;
    }
    interruption_.reset();
    saving_.reset();
    const Expected<SavedPages> saved = task->Take();
    if (saved) {
      callbacks_.saved(*saved);
    } else {
      callbacks_.refused(saved.message());
    }
    return true;
  });
}

void JobSender::CancelSending() {
  if (progress_ != nullptr) progress_->cancel = true;
  if (saving_ != nullptr) saving_->cancel = true;
}

void JobSender::WaitForEnd(int job, const std::string &id) {
  job_ = job;
  waiting_ = std::make_unique<JobWaiting>(id);
  AskForStatus();
}

void JobSender::AskForStatus() {
  using Clock = std::chrono::steady_clock;
  auto task = std::make_shared<BackgroundTask<Expected<JobStatus>>>(
      [server = server_, job = job_] { return server.StatusOfJob(job); });
  const auto next = Clock::now() + kBetweenQuestions;
  poller_ = Poller([this, task, next] {
    if (!task->HasEnded()) {
      passwords_.AnswerQuestion();
      return false;
    }
    if (Clock::now() < next) return false;
    if (waiting_->Take(task->Take())) {
      callbacks_.ended(waiting_->result());
    } else {
      callbacks_.waiting(waiting_->message());
      AskForStatus();
    }
    return true;
  });
}
