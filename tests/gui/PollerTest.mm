#include "host/dialog/Poller.h"

#import "tests/gui/Screen.h"
#import "tests/support/LiveInstances.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/Patience.h"

OBJC_TEST(Poller, AsksUntilTheAnswerIsYes) {
  int asked = 0;
  Poller poller([&asked] { return ++asked == 3; });
  HandleEventsUntil([&asked] { return asked == 3; });
  HandleEventsUntilSettled();
  EXPECT_EQ(3, asked);
}

OBJC_TEST(Poller, DoesNotAskAgainWhileItsQuestionHandlesEvents) {
  int asked = 0;
  Poller poller([&asked] {
    ++asked;
    HandleEventsUntilSettled();
    return true;
  });
  HandleEventsUntil([&asked] { return asked > 0; });
  HandleEventsUntilSettled();
  EXPECT_EQ(1, asked);
}

OBJC_TEST(Poller, ItsQuestionMayReplaceIt) {
  int first = 0;
  int second = 0;
  Poller poller;
  poller = Poller([&] {
    ++first;
    poller = Poller([&] { return ++second == 2; });
    return true;
  });
  HandleEventsUntil([&second] { return second == 2; });
  EXPECT_EQ(1, first);
}

OBJC_TEST(Poller, OneThatIsGoneDoesNotAsk) {
  int asked = 0;
  {
    Poller poller([&asked] { return ++asked == 0; });
  }
  HandleEventsUntilSettled();
  EXPECT_EQ(0, asked);
}

OBJC_TEST(Poller, ItsEndWakesWhoeverWaitsForAnEvent) {
  HandleEventsUntilSettled();
  bool ended = false;
  Poller poller([&ended] { return ended = true; });
  NSEvent *event =
      [NSApp nextEventMatchingMask:NSAnyEventMask
                         untilDate:[NSDate dateWithTimeIntervalSinceNow:kPatience.count()]
                            inMode:NSDefaultRunLoopMode
                           dequeue:YES];
  EXPECT_TRUE(ended);
  EXPECT_NE(nil, event);
}

// The run loop would keep them for the modes that are not run.
OBJC_TEST(Poller, ManyOneAfterTheOtherLeaveNoTimers) {
  const auto run = [] {
    @autoreleasepool {
      bool ended = false;
      Poller poller([&ended] { return ended = true; });
      HandleEventsUntil([&ended] { return ended; });
    }
  };
  run();
  const long timers = LiveInstances([NSTimer class]);
  for (int i = 0; i < 10; ++i) run();
  EXPECT_EQ(timers, LiveInstances([NSTimer class]));
}

OBJC_TEST(Poller, OneThatIsReplacedByItsQuestionDoesNotAskForAnother) {
  int first = 0;
  int second = 0;
  int third = 0;
  Poller poller;
  Poller other;
  poller = Poller([&] {
    ++first;
    poller = Poller();
    other = Poller([&second] { return ++second == 3; });
    return true;
  });
  HandleEventsUntil([&second] { return second == 3; });
  poller = Poller([&third] { return ++third == 2; });
  HandleEventsUntil([&third] { return third == 2; });
  HandleEventsUntilSettled();
  EXPECT_EQ(1, first);
  EXPECT_EQ(3, second);
  EXPECT_EQ(2, third);
}
