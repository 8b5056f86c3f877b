// Sends a job while the window lives on.

#ifndef HOST_DIALOG_JOBSENDER_H
#define HOST_DIALOG_JOBSENDER_H

#include <functional>
#include <memory>
#include <optional>

#include "host/base/BackgroundTask.h"
#include "host/base/Interruption.h"
#include "host/cups/JobWaiting.h"
#include "host/cups/PrintServer.h"
#include "host/dialog/PasswordWindow.h"
#include "host/dialog/Poller.h"
#include "host/pages/PrintPages.h"
#include "host/pages/SavePages.h"

class JobSender {
 public:
  struct Callbacks {
    std::function<void()> making_pages;
    std::function<void(double fraction)> sending;  // from 0 to 1
    std::function<void(int job)> accepted;
    std::function<void(const SavedPages &saved)> saved;
    std::function<void(const std::string &reason)> refused;
    // For its end, now and then; what is in the way, or the printer's words.
    std::function<void(const std::string &message)> waiting;
    std::function<void(const Expected<void> &printed)> ended;
  };

  JobSender(PrintServer server, PasswordWindow &passwords, Callbacks callbacks);

  // Makes its pages first where that is to be done here.
  void Send(JobRequest request, std::optional<PagesHere> here);
  // Keeps its pages as files instead.
  void Save(SaveRequest request);
  // Of a job that was accepted.
  void WaitForEnd(int job, const std::string &id);
  // Takes back a job that is being sent, or saved; `refused` follows.
  void CancelSending();

 private:
  void AskForStatus();

  PrintServer server_;
  PasswordWindow &passwords_;
  Callbacks callbacks_;
  std::shared_ptr<PrintingProgress> progress_;
  std::shared_ptr<SavingProgress> saving_;
  std::unique_ptr<Interruption> interruption_;  // while a job is being sent
  int job_ = 0;
  std::unique_ptr<JobWaiting> waiting_;
  Poller poller_;
};

#endif
