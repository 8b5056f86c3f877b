// A wheel that turns while something is waited for.

#ifndef HOST_DIALOG_SPINNER_H
#define HOST_DIALOG_SPINNER_H

#import <Cocoa/Cocoa.h>

#include "host/dialog/Poller.h"

/// Turns while it is in a window and not hidden.
@interface Spinner : NSView {
  Poller _turning;
  BOOL _turns;
  int _polls;
  int _step;
}
@end

#endif
