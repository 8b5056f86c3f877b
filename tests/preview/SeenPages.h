// The dialog with its preview on the screen, for a document of three pages.

#ifndef TESTS_PREVIEW_SEENPAGES_H
#define TESTS_PREVIEW_SEENPAGES_H

#include <functional>
#include <optional>
#include <string>

#import "host/dialog/PreviewView.h"
#import "tests/gui/DialogOnScreen.h"
#include "tests/support/Interpreter.h"
#include "tests/support/TemporaryFolder.h"

// Of numbers, if they are red.
bool IsRed(Color color);

// Each with its heading "Page N".
std::string HeadedPages(int count);

class SeenPages {
 public:
  // The preview is shown, unless the options say how it is.
  explicit SeenPages(DialogOptions options = {.preview = true}, const std::string &document = "");

  DialogOnScreen &screen() { return screen_; }
  PreviewView *preview() const { return preview_; }
  std::string count() const;
  // What is seen on the page alone; none: there is no page.
  std::optional<Picture> Page() const;
  double Red() const;  // how much of it

  void AwaitPages(const std::string &count) { screen_.AwaitText(count); }
  void AwaitRed(const std::function<bool(double)> &enough);
  // A control of the panel.
  id outlet(NSString *name);
  void SwitchOnInRed();

 private:
  DialogOptions With(DialogOptions options, const std::string &document) const;

  TemporaryFolder folder_;
  DialogOnScreen screen_;
  PreviewView *preview_ = nil;  // of the screen
};

#endif
