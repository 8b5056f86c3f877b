#include "host/dialog/Poller.h"

#import <AppKit/AppKit.h>

#include <utility>

@interface PollerTarget : NSObject {
 @public
  std::function<bool()> _hasEnded;
  BOOL _isAsking;
  BOOL _isOver;
}
- (void)poll:(NSTimer *)timer;
@end

namespace {

const NSTimeInterval kInterval = 0.02;

// Whoever handles events one by one looks up after each, and may find that the waiting is over.
void PostEmptyEvent() {
  [NSApp postEvent:[NSEvent otherEventWithType:NSApplicationDefined
                                      location:NSZeroPoint
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:0
                                       context:nil
                                       subtype:0
                                         data1:0
                                         data2:0]
           atStart:NO];
}

}  // namespace

@implementation PollerTarget

- (void)poll:(NSTimer *)timer {
  // What ends the waiting may drop the poller, and with it this object and the timer.
  [[self retain] autorelease];
  [[timer retain] autorelease];
  if (_isOver) {
    [timer invalidate];
    return;
  }
  // What is done at the end may ask the user, and events are handled until the answer.
  if (_isAsking) return;
  const std::function<bool()> hasEnded = _hasEnded;
  _isAsking = YES;
  const bool ended = hasEnded();
  _isAsking = NO;
  if (!ended) return;
  // The platform looks for events when a timer is due, but not after it: the next time finds it.
  _isOver = YES;
  PostEmptyEvent();
}

@end

Poller::Poller(std::function<bool()> has_ended) {
  PollerTarget *target = [[[PollerTarget alloc] init] autorelease];
  target->_hasEnded = std::move(has_ended);
  NSTimer *timer = [NSTimer timerWithTimeInterval:kInterval
                                           target:target
                                         selector:@selector(poll:)
                                         userInfo:nil
                                          repeats:YES];
  for (NSString *mode in
       @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ]) {
    [[NSRunLoop currentRunLoop] addTimer:timer forMode:mode];
  }
  timer_ = Retained<NSTimer *>::Share(timer);
}

Poller &Poller::operator=(Poller &&other) noexcept {
  [timer_.get() invalidate];
  timer_ = std::move(other.timer_);
  return *this;
}

Poller::~Poller() { [timer_.get() invalidate]; }
