// The preview: the job's pages as they would be printed, as the job stands at this moment.

#ifndef HOST_DIALOG_PREVIEW_H
#define HOST_DIALOG_PREVIEW_H

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "host/base/BackgroundTask.h"
#include "host/base/Expected.h"
#include "host/base/Retained.h"
#include "host/dialog/ActionTarget.h"
#include "host/dialog/Poller.h"
#import "host/dialog/PreviewView.h"
#include "host/preview/PageStore.h"

// The pages are made in the background, by programs of their own. What is made of an earlier state
// is canceled as soon as the job is another one.
class Preview {
 public:
  // Asked for the job as it stands; the failure is shown in place of a page. It is asked between
  // events, and the less often the longer it takes: extensions are asked, too.
  using Job = std::function<Expected<PagesRequest>()>;

  Preview(PreviewView *view, Job job);
  ~Preview();
  Preview(const Preview &) = delete;
  Preview &operator=(const Preview &) = delete;

  // Shows pages, or rests.
  void SetShown(bool shown);
  // The job may be another one than before.
  void Look();

 private:
  using Clock = std::chrono::steady_clock;
  using Task = BackgroundTask<Expected<PagePicture>>;

  void TieControls();
  bool Poll();
  void AskForJob();
  void MakePicture();
  void TakePicture();
  void Show(const PagePicture &picture);
  void ShowReason(const std::string &reason);
  void ShowSentence(NSString *sentence);
  void Turn(PageTurn turn);
  void GoTo(int page);
  void MakeNext(const PagePicture &shown);
  DrawingSize Size() const;
  void Cancel();

  Retained<PreviewView *> view_;
  Job job_;
  const std::shared_ptr<PageStore> store_ = std::make_shared<PageStore>();
  bool is_shown_ = false;
  std::optional<Clock::time_point> look_at_;  // when the job is asked for; none: it need not be
  Clock::duration last_asking_{};
  std::optional<PagesRequest> wanted_;  // none: there is nothing to show
  int page_ = 1;
  int pages_ = 0;     // 0: not known
  DrawingSize size_;  // of what is shown or made
  std::shared_ptr<std::atomic<bool>> cancel_;
  std::unique_ptr<Task> task_;
  std::unique_ptr<Task> next_;  // the page behind, for whoever turns to it
  Actions actions_;
  Poller poller_;
  bool is_polling_ = false;
};

#endif
