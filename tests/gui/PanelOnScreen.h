// The panel in the print dialog, worked with real key and mouse events.

#ifndef TESTS_GUI_PANELONSCREEN_H
#define TESTS_GUI_PANELONSCREEN_H

#include <memory>
#include <string>
#include <vector>

#include "host/dialog/PrintDialog.h"
#import "tests/gui/Screen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

class PanelOnScreen {
 public:
  // Shows the panel for a job with these print settings and waits until the window has the focus.
  explicit PanelOnScreen(NSDictionary *settings = nil, const char *printer = kColorPrinter);
  ~PanelOnScreen();
  PanelOnScreen(const PanelOnScreen &) = delete;
  PanelOnScreen &operator=(const PanelOnScreen &) = delete;

  id operator[](NSString *outlet) const { return Outlet(panel_, outlet); }
  PrintDialog &dialog() const { return *dialog_; }
  NSWindow *window() const { return dialog_->window(); }
  NSString *StartNumber() const { return [(*this)[@"textBoxStartNumber"] stringValue]; }
  // The outlet's name of the control that has the focus, nil where it is none of the panel's.
  NSString *FocusedOutlet() const;

  // Key names as xdotool takes them, one after the other.
  void Press(const std::vector<std::string> &keys);
  void Type(const std::string &text);
  // Puts the text on the clipboard, from another program, and presses Control-V.
  void Paste(const std::string &text);
  // A press and release of the mouse in the middle of a view, or of the given part of its bounds.
  void Click(NSView *view);
  void Click(NSView *view, NSRect part);
  // Presses at the view's middle, waits, releases.
  void Hold(NSView *view, NSRect part, double seconds);
  // Presses at the middle of one part, moves to that of the other, releases.
  void Drag(NSView *view, NSRect from, NSRect to);
  void FocusStartNumber();

  // What the job holds after the panel has saved.
  NSDictionary *SavedSettings();

  static constexpr char kColorPrinter[] =
      "*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n";
  static constexpr char kMonoPrinter[] =
      "*ColorDevice: False\n*VQBackgroundNumberingSupport: \"true\"\n";

 private:
  TestPPD ppd_;
  TemporaryFolder presets_;
  Extensions extensions_;
  std::unique_ptr<PrintDialog> dialog_;
  id<PDEPanel> panel_;
};

// The job's settings with numbering on and this start number.
NSDictionary *NumberingFrom(NSString *start_number);

// The upper and the lower half of a view: the arrows of a stepper.
NSRect UpperHalf(NSView *view);
NSRect LowerHalf(NSView *view);

#endif
