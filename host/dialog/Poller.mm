#include "host/dialog/Poller.h"

#import <AppKit/AppKit.h>

#include <utility>

// The run loop drops a timer in those modes alone that are run again after its end, and questions
// and open menus are rare: so timers are kept, and rest until they are needed again.
@interface PollerTarget : NSObject {
  NSTimer *_timer;  // both live as long as the program
  std::function<bool()> _hasEnded;
  BOOL _isAsking;
  BOOL _isOver;
}
/// One that asks; to be ended.
+ (instancetype)asking:(std::function<bool()>)hasEnded;
- (void)end;
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

+ (NSMutableArray *)resting {
  static NSMutableArray *const resting = [[NSMutableArray alloc] init];
  return resting;
}

+ (instancetype)asking:(std::function<bool()>)hasEnded {
  PollerTarget *target = [[[[self resting] lastObject] retain] autorelease];
  if (target == nil) {
    target = [[[self alloc] init] autorelease];
  } else {
    [[self resting] removeLastObject];
  }
  target->_hasEnded = std::move(hasEnded);
  target->_isOver = NO;
  [target->_timer setFireDate:[NSDate dateWithTimeIntervalSinceNow:kInterval]];
  return target;
}

- (instancetype)init {
  self = [super init];
  if (self == nil) return nil;
  _timer = [NSTimer timerWithTimeInterval:kInterval
                                   target:self
                                 selector:@selector(poll)
                                 userInfo:nil
                                  repeats:YES];
  for (NSString *mode in
       @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ]) {
    [[NSRunLoop currentRunLoop] addTimer:_timer forMode:mode];
  }
  return self;
}

- (void)end {
  _hasEnded = nullptr;
  [_timer setFireDate:[NSDate distantFuture]];
  // Otherwise its question is still being asked.
  if (!_isAsking) [[PollerTarget resting] addObject:self];
}

- (void)poll {
  // What is done at the end may ask the user, and events are handled until the answer.
  if (_isAsking || !_hasEnded) return;
  if (_isOver) {
    [_timer setFireDate:[NSDate distantFuture]];
    return;
  }
  // The question may end this object's work.
  const std::function<bool()> hasEnded = _hasEnded;
  _isAsking = YES;
  const bool ended = hasEnded();
  _isAsking = NO;
  if (!_hasEnded) [[PollerTarget resting] addObject:self];
  if (!ended) return;
  // The platform looks for events when a timer is due, but not after it: the next time finds it.
  _isOver = YES;
  PostEmptyEvent();
}

@end

Poller::Poller(std::function<bool()> has_ended)
    : target_(Retained<id>::Share([PollerTarget asking:std::move(has_ended)])) {}

Poller &Poller::operator=(Poller &&other) noexcept {
  // The end of this one may be the end of the other's question, too.
  const Retained<id> before = std::exchange(target_, std::move(other.target_));
  [(PollerTarget *)before.get() end];
  return *this;
}

Poller::~Poller() { [(PollerTarget *)target_.get() end]; }
