// A job from the moment that it is to be printed to its end, as the window shows it.

#ifndef HOST_DIALOG_JOBDELIVERY_H
#define HOST_DIALOG_JOBDELIVERY_H

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Retained.h"
#include "host/cups/PrintServer.h"
#include "host/dialog/JobSender.h"
#include "host/dialog/PasswordWindow.h"
#include "host/dialog/PrintDialogJob.h"
#import "host/dialog/PrintDialogView.h"

class JobDelivery {
 public:
  struct Callbacks {
    std::function<void()> waiting;  // the server has taken the job, and its end is waited for
    std::function<void(const std::string &reason)> refused;  // nothing is printed
    std::function<void(DialogEnd end)> ended;
  };

  // Its progress stands beside the view's buttons. The window that asks for passwords must outlive
  // the object. Whether it waits for the job's end.
  JobDelivery(PrintDialogView *view, PrintServer server, PasswordWindow &passwords, bool waits,
              Callbacks callbacks);

  // Here: what is to be done before it is sent.
  void Begin(JobRequest request, std::optional<PagesHere> here);
  // Keeps the pages as a file.
  void Save(SaveRequest request);
  // Takes back what is being sent or saved; `refused` follows.
  void TakeBack();
  // Does not wait for the end any more: a job of which it is not known counts as failed.
  void GiveUpWaiting();

  bool has_begun() const { return has_begun_; }
  const std::vector<std::filesystem::path> &saved() const { return saved_; }
  int job_number() const { return number_; }  // 0: the server has taken none
  // Of a job that failed, what has become of it: "ID was canceled: REASON".
  const std::string &failure() const { return failure_; }

 private:
  void WasAccepted(int number);
  void WasRefused(const std::string &reason);
  void HasEnded(const Expected<void> &printed);
  void ShowProgress(const std::string &text, double fraction = -1);
  std::string Id() const;

  Retained<PrintDialogView *> view_;
  const bool waits_;
  Callbacks callbacks_;
  JobSender sender_;
  std::string queue_;
  bool has_begun_ = false;
  int number_ = 0;
  std::vector<std::filesystem::path> saved_;
  std::string failure_;
};

#endif
