// Actions of controls as functions.

#ifndef HOST_DIALOG_ACTIONTARGET_H
#define HOST_DIALOG_ACTIONTARGET_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <vector>

#include "host/base/Retained.h"

/// Runs a function for a control's action. As a window's delegate it runs it instead of closing.
@interface ActionTarget : NSObject <NSWindowDelegate> {
  std::function<void()> _function;
}

- (instancetype)initWithFunction:(std::function<void()>)function;
- (void)act:(id)sender;

@end

// Holds the targets of controls, which do not hold them themselves, and unties them when it goes.
class Actions {
 public:
  Actions() = default;
  Actions(const Actions &) = delete;
  Actions &operator=(const Actions &) = delete;
  ~Actions();

  void Tie(NSControl *control, std::function<void()> function);
  void TieClosing(NSWindow *window, std::function<void()> function);

 private:
  std::vector<Retained<ActionTarget *>> targets_;
  std::vector<Retained<NSControl *>> controls_;
  Retained<NSWindow *> window_;
};

#endif
