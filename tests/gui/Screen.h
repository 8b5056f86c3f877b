// Real key and mouse events, and the time that their handling takes.

#ifndef TESTS_GUI_SCREEN_H
#define TESTS_GUI_SCREEN_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

// Handles events until something holds; that it never does is the test's failure.
void HandleEventsUntil(const std::function<bool()> &done);
// Until no event has come for a moment.
void HandleEventsUntilSettled();

// Runs a command while the events that it causes are handled.
void RunOnScreen(const std::vector<std::string> &command);
// Gives the keyboard to the window with this title.
void Activate(const std::string &title);

// Key names as xdotool takes them, one after the other.
void PressKeys(const std::vector<std::string> &keys);
void TypeText(const std::string &text);
// While it lives, a question that is asked in the middle of handling an event is answered with
// these keys, as soon as it takes any, and so are those that follow, up to this number.
class AnswerToQuestion {
 public:
  explicit AnswerToQuestion(const std::vector<std::string> &keys, int questions = 1);
  ~AnswerToQuestion();
  AnswerToQuestion(const AnswerToQuestion &) = delete;
  AnswerToQuestion &operator=(const AnswerToQuestion &) = delete;

 private:
  struct Hand;
  std::unique_ptr<Hand> hand_;
};

// A press and release of the mouse in the middle of a part of the view, with a pause between them.
void HoldMouse(NSView *view, NSRect part, double seconds);
// Presses at the middle of one part, moves to that of the other, releases.
void DragMouse(NSView *view, NSRect from, NSRect to);

// Writes a picture of the view, as it is drawn now, below build/.../pictures.
void KeepPicture(NSView *view, const std::string &name);

#endif
