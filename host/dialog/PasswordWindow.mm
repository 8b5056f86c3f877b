#include "host/dialog/PasswordWindow.h"

#import <Cocoa/Cocoa.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>

#include "host/base/Localized.h"
#include "host/base/Retained.h"
#import "host/dialog/PasswordPanel.h"
#include "host/dialog/Poller.h"

namespace {

constexpr std::chrono::milliseconds kLook(20);

}  // namespace

// The one question that is open, between the thread that asks and the main thread.
class PasswordWindow::Questions : public PasswordSource {
 public:
  Expected<Login> Ask(const PasswordQuestion &question,
                      const std::atomic<bool> &is_withdrawn) override {
    std::unique_lock lock(mutex_);
    question_ = question;
    answer_.reset();
    has_answer_ = false;
    while (!has_answer_ && !is_closed_ && !is_withdrawn) changed_.wait_for(lock, kLook);
    question_.reset();
    if (!answer_) return NoPasswordGiven();
    const Login login = *std::exchange(answer_, std::nullopt);
    return login;
  }

  std::optional<PasswordQuestion> Open() const {
    const std::scoped_lock lock(mutex_);
    return question_;
  }

  void Answer(std::optional<Login> login) {
    const std::scoped_lock lock(mutex_);
    answer_ = std::move(login);
    has_answer_ = true;
    changed_.notify_all();
  }

  void Close() {
    const std::scoped_lock lock(mutex_);
    is_closed_ = true;
    changed_.notify_all();
  }

 private:
  mutable std::mutex mutex_;  // of all
  std::condition_variable changed_;
  std::optional<PasswordQuestion> question_;
  std::optional<Login> answer_;
  bool has_answer_ = false;
  bool is_closed_ = false;
};

PasswordWindow::PasswordWindow()
    : questions_(std::make_shared<Questions>()),
      passwords_(std::make_shared<Passwords>(questions_)) {}

PasswordWindow::~PasswordWindow() { Close(); }

void PasswordWindow::AnswerQuestion() {
  const std::optional<PasswordQuestion> question = questions_->Open();
  // While it is shown, others wait for their operations.
  if (!question || is_shown_) return;
  is_shown_ = true;
  const Retained<PasswordPanel *> panel =
      Retained<PasswordPanel *>::Adopt([[PasswordPanel alloc] initWithQuestion:*question]);
  Poller withdrawal([&] {
    if (questions_->Open() || [NSApp modalWindow] != [panel.get() window]) return false;
    [panel.get() cancel:nil];
    return true;
  });
  std::optional<Login> login = [panel.get() run];
  withdrawal = Poller();
  is_shown_ = false;
  if (questions_->Open()) questions_->Answer(std::move(login));
}

void PasswordWindow::Close() { questions_->Close(); }
