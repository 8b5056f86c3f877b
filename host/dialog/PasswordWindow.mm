#include "host/dialog/PasswordWindow.h"

#import <Cocoa/Cocoa.h>

#include "host/base/Retained.h"
#include "host/dialog/OpenQuestion.h"
#import "host/dialog/PasswordPanel.h"
#include "host/dialog/Poller.h"

PasswordWindow::PasswordWindow()
    : question_(std::make_shared<OpenQuestion>()),
      passwords_(std::make_shared<Passwords>(question_)) {}

PasswordWindow::~PasswordWindow() { Close(); }

void PasswordWindow::AnswerQuestion() {
  const std::optional<OpenQuestion::Numbered> open = question_->Get();
  // While it is shown, others wait for their operations.
  if (!open || is_shown_) return;
  is_shown_ = true;
  const Retained<PasswordPanel *> panel =
      Retained<PasswordPanel *>::Adopt([[PasswordPanel alloc] initWithQuestion:open->question]);
  Poller withdrawal([&] {
    if (question_->IsOpen(open->number) || [NSApp modalWindow] != [panel.get() window])
      return false;
    [panel.get() cancel:nil];
    return true;
  });
  std::optional<Login> login = [panel.get() run];
  withdrawal = Poller();
  is_shown_ = false;
  question_->Answer(open->number, std::move(login));
}

void PasswordWindow::Close() { question_->Close(); }
