#include "host/extension/Guarded.h"

#import "tests/support/ObjCTest.h"

OBJC_TEST(Words, AreTheTextInUtf8) {
  EXPECT_EQ("größer 日本 😀", Words(@"größer 日本 😀"));
  EXPECT_EQ("", Words(nil));
}

OBJC_TEST(WhatRaises, NamesTheExceptionAndItsReason) {
  EXPECT_EQ("Trouble: größer", WhatRaises([] { [NSException raise:@"Trouble" format:@"größer"]; }));
}

OBJC_TEST(WhatRaises, KnowsOtherObjectsThatAreThrown) {
  EXPECT_EQ("nonsense", WhatRaises([] { @throw @"nonsense"; }));
}

OBJC_TEST(WhatRaises, RunsTheBody) {
  bool ran = false;
  EXPECT_EQ(std::nullopt, WhatRaises([&ran] { ran = true; }));
  EXPECT_TRUE(ran);
}

// A panel is gone when its last owner drops it, not when the dialog's pool is emptied.
OBJC_TEST(WhatRaises, LeavesNothingInTheCallersPool) {
  auto object = [[NSMutableArray alloc] init];
  WhatRaises([object] { [[object retain] autorelease]; });
  EXPECT_EQ(1u, [object retainCount]);
  [object release];
}
