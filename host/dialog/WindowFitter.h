// Keeps the dialog's window as large as what it shows.

#ifndef HOST_DIALOG_WINDOWFITTER_H
#define HOST_DIALOG_WINDOWFITTER_H

#import <Cocoa/Cocoa.h>

#include "host/base/Retained.h"
#include "host/dialog/FittedSize.h"
#import "host/dialog/PrintDialogView.h"

class WindowFitter {
 public:
  // The view is the window's content; its size now is nobody's choice.
  WindowFitter(NSWindow *window, PrintDialogView *view);

  // Whether the screen is large enough for what the view shows, but for panels, which scroll.
  bool HasRoom() const;

  // As large as a panel of this size needs, unless the user has made it larger or the screen is
  // smaller. The upper left corner stays.
  void Fit(NSSize panel);

 private:
  Retained<NSWindow *> window_;
  Retained<PrintDialogView *> view_;
  FittedSize size_;
};

#endif
