#import <Cocoa/Cocoa.h>

#import "tests/support/ObjCTest.h"

namespace {

NSView *NewView() { return [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)]; }

}  // namespace

OBJC_TEST(AddedIdentifiers, AnIdentifierIsCopied) {
  NSView *view = [NewView() autorelease];
  NSMutableString *text = [NSMutableString stringWithString:@"before"];
  [view setIdentifier:text];
  [text setString:@"after"];
  EXPECT_EQUAL_OBJECTS(@"before", [view identifier]);
}

OBJC_TEST(AddedIdentifiers, AnIdentifierGoesWithItsView) {
  NSMutableString *text = [[NSMutableString alloc] initWithString:@"name"];
  NSView *view = NewView();
  [view setIdentifier:text];
  NSString *stored = [view identifier];
  const NSUInteger before = [stored retainCount];
  [stored retain];
  [view release];
  EXPECT_EQ(before, [stored retainCount]) << "the view's reference went, the test's is left";
  [stored release];
  [text release];
}
