#import <Cocoa/Cocoa.h>

#import "tests/support/ObjCTest.h"

namespace {

NSView *NewView() { return [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)]; }

}  // namespace

OBJC_TEST(ControlIdentifiers, AViewHasNoneAtFirst) {
  EXPECT_EQUAL_OBJECTS(nil, [[NewView() autorelease] identifier]);
}

OBJC_TEST(ControlIdentifiers, EveryViewHasItsOwn) {
  NSView *first = [NewView() autorelease];
  NSView *second = [NewView() autorelease];
  [first setIdentifier:@"first"];
  [second setIdentifier:@"second"];
  EXPECT_EQUAL_OBJECTS(@"first", [first identifier]);
  EXPECT_EQUAL_OBJECTS(@"second", [second identifier]);
}

OBJC_TEST(ControlIdentifiers, NilRemovesIt) {
  NSView *view = [NewView() autorelease];
  [view setIdentifier:@"name"];
  [view setIdentifier:nil];
  EXPECT_EQUAL_OBJECTS(nil, [view identifier]);
}

OBJC_TEST(ControlIdentifiers, AViewAtTheSamePlaceInMemoryStartsWithoutOne) {
  for (int round = 0; round < 100; ++round) {
    NSView *view = NewView();
    ASSERT_EQ(nil, [view identifier]);
    [view setIdentifier:@"name"];
    [view release];
  }
}
