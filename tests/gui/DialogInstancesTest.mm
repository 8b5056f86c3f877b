// What dialogs leave behind when they have gone.

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/LiveInstances.h"
#import "tests/support/ObjCTest.h"

namespace {

NSArray *DialogClasses() {
  return @[
    @"DialogWindow", @"FocusRing", @"PrintDialogView", @"PanelArea", @"WaitingView", @"Spinner",
    @"RowsView", @"SummaryView", @"DocumentsView", @"DocumentsTable", @"DescriptorWatcher",
    @"ActionTarget", @"FlippedView", @"HostCallback"
  ];
}

NSDictionary *LiveObjects() {
  NSMutableDictionary *live = [NSMutableDictionary dictionary];
  for (NSString *name in DialogClasses()) {
    const long count = LiveInstances(NSClassFromString(name));
    [live setObject:[NSNumber numberWithLong:count] forKey:name];
  }
  return live;
}

void WorkADialog() {
  @autoreleasepool {
    DialogOnScreen screen;
    screen.AwaitReady();
    screen.ShowPanel(@"Layout");
    screen.ShowPanel(@"Documents");
    screen.ShowPanel(@"Summary");
    screen.Choose([screen.view() printers], @"Mono");
    screen.AwaitReady();
    PressKeys({"Escape"});
    screen.AwaitEnd();
  }
}

}  // namespace

OBJC_TEST(DialogInstances, ADialogThatHasGoneLeavesNothingOfItsOwn) {
  WorkADialog();
  NSDictionary *before = LiveObjects();
  for (int i = 0; i < 2; ++i) WorkADialog();
  EXPECT_EQUAL_OBJECTS(before, LiveObjects());
  // These rest for the next dialog: there are as many as have ever been at work at once, which goes
  // with how long the server takes. Each dialog needs several.
  EXPECT_LE(LiveInstances(NSClassFromString(@"PollerTarget")), 3);
}
