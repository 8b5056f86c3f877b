// Asking for passwords in a window.

#ifndef HOST_DIALOG_PASSWORDWINDOW_H
#define HOST_DIALOG_PASSWORDWINDOW_H

#include <memory>

#include "host/cups/Passwords.h"

class OpenQuestion;

// The questions come from the threads of operations, which wait; the window is the main thread's,
// which calls everything here. Whoever waits for an operation on the main thread looks for its
// questions now and then.
class PasswordWindow {
 public:
  PasswordWindow();
  // Whoever waits gets no password, now and later.
  ~PasswordWindow();
  PasswordWindow(const PasswordWindow &) = delete;
  PasswordWindow &operator=(const PasswordWindow &) = delete;

  // For print servers; they may outlive the object.
  const std::shared_ptr<Passwords> &passwords() const { return passwords_; }

  // If there is a question, shows it and handles events until it is answered, or withdrawn.
  void AnswerQuestion();
  // Ends a question that is shown: nothing is wanted any more.
  void Close();

 private:
  bool is_shown_ = false;
  std::shared_ptr<OpenQuestion> question_;
  std::shared_ptr<Passwords> passwords_;
};

#endif
