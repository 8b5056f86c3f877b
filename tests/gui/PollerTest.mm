#include "host/dialog/Poller.h"

#import "tests/gui/Screen.h"
#import "tests/support/ObjCTest.h"

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
  NSEvent *event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                      untilDate:[NSDate dateWithTimeIntervalSinceNow:5]
                                         inMode:NSDefaultRunLoopMode
                                        dequeue:YES];
  EXPECT_TRUE(ended);
  EXPECT_NE(nil, event);
}
