#include "host/dialog/JobDelivery.h"

#include <utility>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/cups/RequestId.h"
#import "host/dialog/Controls.h"

JobDelivery::JobDelivery(PrintDialogView *view, PrintServer server, PasswordWindow &passwords,
                         bool waits, Callbacks callbacks)
    : view_(Retained<PrintDialogView *>::Share(view)),
      waits_(waits),
      callbacks_(std::move(callbacks)),
      sender_(
          std::move(server), passwords,
          {.making_pages = [this] { ShowProgress(Localized("Preparing the pages…")); },
           .sending = [this](double fraction) { ShowProgress(Localized("Sending…"), fraction); },
           .accepted = [this](int number) { WasAccepted(number); },
           .saved =
               [this](const SavedPages &saved) {
                 for (const std::string &note : saved.notes) Note(note);
                 saved_ = saved.files;
                 callbacks_.ended(DialogEnd::kSaved);
               },
           .refused = [this](const std::string &reason) { WasRefused(reason); },
           .waiting =
               [this](const std::string &message) {
                 ShowProgress(Localized("Printing %1…", {Id()}) + "  " + message);
               },
           .ended = [this](const Expected<void> &printed) { HasEnded(printed); }}) {}

void JobDelivery::Begin(JobRequest request, std::optional<PagesHere> here) {
  has_begun_ = true;
  queue_ = request.queue;
  ShowProgress(Localized("Sending…"), 0);
  sender_.Send(std::move(request), std::move(here));
}

void JobDelivery::Save(SaveRequest request) {
  ShowProgress(Localized("Preparing the pages…"));
  sender_.Save(std::move(request));
}

void JobDelivery::TakeBack() {
  ShowProgress(Localized("Taking the job back…"));
  sender_.CancelSending();
}

void JobDelivery::GiveUpWaiting() {
  failure_ = Localized("%1 has not been printed yet", {Id()});
  callbacks_.ended(DialogEnd::kJobFailed);
}

void JobDelivery::WasAccepted(int number) {
  number_ = number;
  if (!waits_) return callbacks_.ended(DialogEnd::kPrinted);
  callbacks_.waiting();
  sender_.WaitForEnd(number, Id());
}

void JobDelivery::WasRefused(const std::string &reason) {
  ShowProgress("");
  callbacks_.refused(reason);
}

void JobDelivery::HasEnded(const Expected<void> &printed) {
  if (!printed) failure_ = printed.message();
  callbacks_.ended(printed ? DialogEnd::kPrinted : DialogEnd::kJobFailed);
}

void JobDelivery::ShowProgress(const std::string &text, double fraction) {
  [view_.get() setProgressText:String(text) fraction:fraction];
}

std::string JobDelivery::Id() const { return RequestId(queue_, number_); }
