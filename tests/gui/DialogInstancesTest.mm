// What dialogs leave behind when they have gone.

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/ObjCTest.h"

extern "C" BOOL GSDebugAllocationActive(BOOL active);
extern "C" int GSDebugAllocationCount(Class cls);

namespace {

NSArray *DialogClasses() {
  return @[
    @"DialogWindow", @"FocusRing", @"PrintDialogView", @"WaitingView", @"Spinner", @"OptionsView",
    @"SummaryView", @"ActionTarget", @"PollerTarget", @"FlippedView", @"HostCallback"
  ];
}

NSDictionary *LiveInstances() {
  NSMutableDictionary *live = [NSMutableDictionary dictionary];
  for (NSString *name in DialogClasses()) {
    const int count = GSDebugAllocationCount(NSClassFromString(name));
    [live setObject:[NSNumber numberWithInt:count] forKey:name];
  }
  return live;
}

void WorkADialog() {
  @autoreleasepool {
    DialogOnScreen screen;
    screen.AwaitReady();
    screen.ShowPanel(@"Printer Options");
    screen.ShowPanel(@"Summary");
    screen.Choose([screen.view() printers], @"Mono");
    screen.AwaitReady();
    PressKeys({"Escape"});
    screen.AwaitEnd();
  }
}

}  // namespace

OBJC_TEST(DialogInstances, ADialogThatHasGoneLeavesNothingOfItsOwn) {
  GSDebugAllocationActive(YES);
  WorkADialog();
  NSDictionary *before = LiveInstances();
  for (int i = 0; i < 2; ++i) WorkADialog();
  EXPECT_EQUAL_OBJECTS(before, LiveInstances());
}
