#include "host/dialog/Preview.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"

namespace {

constexpr std::chrono::milliseconds kPause(20);  // of what is typed, at most
constexpr int kPauseShare = 10;                  // of the time that asking takes
constexpr int kWholePage = 0;
constexpr double kPixelsPerInch = 96;  // as desktops have it

std::string CountInWords(const PagePicture &picture, bool is_two_sided) {
  const auto pages = static_cast<size_t>(picture.pages);
  const size_t sheets = is_two_sided ? (pages + 1) / 2 : pages;
  return LocalizedCount("of %2 pages, %1", {LocalizedCount("%1 sheets", {}, sheets)}, pages);
}

}  // namespace

Preview::Preview(PreviewView *view, Job job)
    : view_(Retained<PreviewView *>::Share(view)), job_(std::move(job)) {
  TieControls();
}

Preview::~Preview() {
  [[view_.get() canvas] setTurn:nullptr];
  [view_.get() setGoTo:nullptr];
  Cancel();
  store_->Clear();  // the program may end before threads do
}

void Preview::TieControls() {
  PreviewView *view = view_.get();
  [[view canvas] setTurn:[this](PageTurn turn) { Turn(turn); }];
  actions_.Tie([view previous], [this] { Turn(PageTurn::kPrevious); });
  actions_.Tie([view next], [this] { Turn(PageTurn::kNext); });
  [view setGoTo:[this](int page) { GoTo(page); }];
  actions_.Tie([view zoom], [this] { MakePicture(); });
}

void Preview::SetShown(bool shown) {
  is_shown_ = shown;
  if (shown) {
    Look();
  } else {
    Cancel();
    look_at_.reset();
    wanted_.reset();
    poller_ = Poller();
    is_polling_ = false;
  }
}

void Preview::Look() {
  if (!is_shown_) return;
  const auto pause = std::max<Clock::duration>(kPause, kPauseShare * last_asking_);
  look_at_ = Clock::now() + pause;
  if (is_polling_) return;
  is_polling_ = true;
  poller_ = Poller([this] { return Poll(); });
}

// Between events. Whether there is nothing left to wait for.
bool Preview::Poll() {
  if (look_at_ && Clock::now() >= *look_at_) AskForJob();
  if (task_ != nullptr && task_->HasEnded()) TakePicture();
  if (next_ != nullptr && next_->HasEnded()) next_.reset();
  is_polling_ = look_at_ || task_ != nullptr || next_ != nullptr;
  return !is_polling_;
}

void Preview::AskForJob() {
  look_at_.reset();
  const auto begin = Clock::now();
  Expected<PagesRequest> job = job_();
  last_asking_ = Clock::now() - begin;
  if (!job) {
    wanted_.reset();
    Cancel();
    return ShowReason(job.message());
  }
  if (wanted_ == *job && size_ == Size()) return;
  wanted_ = std::move(*job);
  MakePicture();
}

DrawingSize Preview::Size() const {
  PreviewCanvas *canvas = [view_.get() canvas];
  if ([[view_.get() zoom] indexOfSelectedItem] == kWholePage) {
    return {.room = [canvas roomInPixels]};
  }
  return {.room = {}, .dpi = static_cast<int>(std::lround(kPixelsPerInch * [canvas scale]))};
}

void Preview::MakePicture() {
  if (!wanted_) return;
  Cancel();
  size_ = Size();
  cancel_ = std::make_shared<std::atomic<bool>>(false);
  task_ = std::make_unique<Task>(
      [store = store_, job = *wanted_, page = page_, size = size_, cancel = cancel_] {
        return store->Picture(job, page, size, *cancel);
      });
  if (![[view_.get() canvas] hasPicture]) ShowSentence(String(Localized("Preparing the pages…")));
  if (is_polling_) return;
  is_polling_ = true;
  poller_ = Poller([this] { return Poll(); });
}

void Preview::TakePicture() {
  const Expected<PagePicture> picture = std::exchange(task_, nullptr)->Take();
  if (!picture) return ShowReason(picture.message());
  Show(*picture);
  MakeNext(*picture);
}

void Preview::Show(const PagePicture &picture) {
  PreviewView *view = view_.get();
  page_ = picture.page;
  pages_ = picture.pages;
  [[view canvas] showPicture:picture];
  [view setCount:String(CountInWords(picture, wanted_->is_two_sided))];
  [view setPageNumber:page_];
  [[view previous] setEnabled:page_ > 1];
  [[view next] setEnabled:page_ < pages_];
}

void Preview::ShowReason(const std::string &reason) { ShowSentence(Sentence(reason)); }

void Preview::ShowSentence(NSString *sentence) {
  pages_ = 0;
  [[view_.get() canvas] showSentence:sentence];
  [view_.get() setCount:@""];
}

void Preview::Turn(PageTurn turn) {
  switch (turn) {
    case PageTurn::kFirst:
      return GoTo(1);
    case PageTurn::kPrevious:
      return GoTo(page_ - 1);
    case PageTurn::kNext:
      return GoTo(page_ + 1);
    case PageTurn::kLast:
      return GoTo(pages_);
  }
}

void Preview::GoTo(int page) {
  if (pages_ == 0) return;
  const int wanted = std::clamp(page, 1, pages_);
  [view_.get() setPageNumber:wanted];
  if (wanted == page_) return;
  page_ = wanted;
  MakePicture();
}

void Preview::MakeNext(const PagePicture &shown) {
  if (shown.page == shown.pages || !wanted_) return;
  next_ = std::make_unique<Task>(
      [store = store_, job = *wanted_, page = shown.page + 1, size = size_, cancel = cancel_] {
        return store->Picture(job, page, size, *cancel);
      });
}

void Preview::Cancel() {
  if (cancel_ != nullptr) *cancel_ = true;
  task_.reset();
  next_.reset();
}
