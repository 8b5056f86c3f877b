#import "view/velmoraBNViewControllerRV2.h"

#import <GNUstepBase/GSObjCRuntime.h>
#include <objc/runtime.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

// Refuses its tickets, and with them the ticket manager.
@interface UnreadyCommonInfo : velmoraBNCommonInfoRV2
@end

@implementation UnreadyCommonInfo

- (BOOL)isReady {
  return NO;
}

@end

// Notes who gives it back.
@interface RecordingCommonInfo : velmoraBNCommonInfoRV2
@end

@implementation RecordingCommonInfo

- (oneway void)release {
  Events().push_back("information given back");
  [super release];
}

@end

namespace {

const std::vector<std::string> kOutlets = {"labelSize",
                                           "labelDensity",
                                           "labelColor",
                                           "labelStartNumber",
                                           "labelStartNumberRange",
                                           "textBoxStartNumber",
                                           "stepperStartNumber",
                                           "functionValid",
                                           "popUpSize",
                                           "popUpDensity",
                                           "popUpColor",
                                           "defaultButton",
                                           "view"};

SEL Getter(const std::string &property) { return sel_registerName(property.c_str()); }

SEL Setter(std::string property) {
  property[0] = static_cast<char>(toupper(property[0]));
  return sel_registerName(("set" + property + ":").c_str());
}

// The objects of kOutlets; for what the controller leaves when it goes.
NSArray *OutletObjects(velmoraBNViewControllerRV2 *controller) {
  NSMutableArray *objects = [[[NSMutableArray alloc] init] autorelease];
  @autoreleasepool {
    for (const std::string &outlet : kOutlets) {
      [objects addObject:[controller performSelector:Getter(outlet)]];
    }
  }
  return objects;
}

void GiveBackWhatWasLeft(NSArray *outletObjects) {
  for (std::size_t i = 0; i < kOutlets.size(); ++i) {
    if (kOutlets[i] != "defaultButton") [[outletObjects objectAtIndex:i] release];
  }
  [[outletObjects lastObject] release];  // the loader's reference to the view
}

// Live objects of the classes that a panel's view controller makes or retains.
struct Census {
  Census() {
    GSDebugAllocationActive(YES);
    for (Class counted in @[
           [velmoraBNViewControllerRV2 class], [velmoraBNPrintTicketManagerRV2 class],
           [velmoraBNPrintTicketValidRV2 class], [velmoraBNPrintTicketPopUpRV2 class],
           [velmoraBNPrintTicketNumberRV2 class], [velmoraBNCommonInfoRV2 class],
           [UnreadyCommonInfo class]
         ]) {
      counts.push_back(GSDebugAllocationCount(counted));
    }
  }
  std::vector<int> counts;
};

}  // namespace

OBJC_TEST(ViewControllerConstants, HaveTheirValues) {
  EXPECT_EQUAL_OBJECTS(@"EnableFunction", BNVCLabelNameValid);
  EXPECT_EQUAL_OBJECTS(@"Size", BNVCLabelNameSize);
  EXPECT_EQUAL_OBJECTS(@"Density", BNVCLabelNameDensity);
  EXPECT_EQUAL_OBJECTS(@"Color", BNVCLabelNameColor);
  EXPECT_EQUAL_OBJECTS(@"StartNumber", BNVCLabelNameStartNumber);
  EXPECT_EQUAL_OBJECTS(@":", BNVCLabelNameDelimiter);
  EXPECT_EQUAL_OBJECTS(@"RestoreDefaults", BNVCLabelNameRestoreDefaults);
  EXPECT_EQUAL_OBJECTS(@"IntegerValueRangeFormat", BNVCLabelNameRangeFormat);
  EXPECT_EQUAL_OBJECTS(@"instance", BNVCKeyInstance);
  EXPECT_EQUAL_OBJECTS(@"prefix", BNVCKeyPrefix);
  EXPECT_EQUAL_OBJECTS(@"names", BNVCKeyNames);
  EXPECT_EQUAL_OBJECTS(@"StartNumber", BNVCIdentifierStartNumber);
}

OBJC_TEST(ViewController, IsAPlainObject) {
  EXPECT_EQUAL_OBJECTS([NSObject class], class_getSuperclass([velmoraBNViewControllerRV2 class]));
}

OBJC_TEST(ViewController, HasItsFieldsInOrder) {
  unsigned count = 0;
  Ivar *fields = class_copyIvarList([velmoraBNViewControllerRV2 class], &count);
  std::vector<std::string> names;
  for (unsigned i = 0; i < count; ++i) names.push_back(ivar_getName(fields[i]));
  const std::string flag = count == 0 ? "" : ivar_getTypeEncoding(fields[0]);
  free(fields);
  std::vector<std::string> expected = {"_viewIsInited", "_commonInfo", "_ticket"};
  for (const std::string &outlet : kOutlets) expected.push_back("_" + outlet);
  EXPECT_EQ(expected, names);
  EXPECT_EQ("c", flag);
}

OBJC_TEST(ViewController, StartsWithTicketsButWithoutControls) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.controller();
  EXPECT_EQ(NO, controller.viewIsInited);
  EXPECT_EQ(panel.info(), controller.commonInfo);
  EXPECT_EQ(5u, [[controller.ticket BNPTMAllTicketsArray] count]);
  for (const std::string &outlet : kOutlets) {
    EXPECT_EQUAL_OBJECTS(nil, [controller performSelector:Getter(outlet)]) << outlet;
  }
}

OBJC_TEST(ViewController, HandsItsCommonInformationToTheTickets) {
  TestPanel panel;
  for (velmoraBNPrintTicketRV2 *ticket in [panel.controller().ticket BNPTMAllTicketsArray]) {
    EXPECT_EQ(panel.info(), ticket.commonInfo);
  }
}

OBJC_TEST(ViewController, RetainsTheCommonInformationOnceBesideTheTickets) {
  TestPanel panel;
  NSUInteger five_tickets_and_itself = 6;
  NSUInteger with_controller = [panel.info() retainCount];
  @autoreleasepool {
    panel.DropController();
  }
  EXPECT_EQ(with_controller - five_tickets_and_itself, [panel.info() retainCount]);
}

OBJC_TEST(ViewController, IsNotMadeWithoutCommonInformation) {
  Census before;
  EXPECT_EQUAL_OBJECTS(nil, [[velmoraBNViewControllerRV2 alloc] initWithCommonInfo:nil]);
  EXPECT_EQ(before.counts, Census().counts);
}

OBJC_TEST(ViewController, IsNotMadeWithoutTicketsAndGivesEverythingBack) {
  Census before;
  @autoreleasepool {
    TestPanel panel({.info_class = [UnreadyCommonInfo class]});
    EXPECT_NE(nil, panel.info());
    EXPECT_EQUAL_OBJECTS(nil, panel.controller());
    EXPECT_EQ(1u, [panel.info() retainCount]);
  }
  EXPECT_EQ(before.counts, Census().counts);
}

OBJC_TEST(ViewController, GivesBackWhatItMadeWhenItGoes) {
  Census before;
  @autoreleasepool {
    TestPanel panel;
    panel.Load();
    EXPECT_NE(before.counts, Census().counts);
  }
  EXPECT_EQ(before.counts, Census().counts);
}

OBJC_TEST(ViewController, RetainsEveryOutletButTheDefaultButton) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.controller();
  for (const std::string &outlet : kOutlets) {
    NSObject *first = [[NSObject alloc] init];
    NSObject *second = [[NSObject alloc] init];
    const NSUInteger retained = outlet == "defaultButton" ? 1 : 2;
    [controller performSelector:Setter(outlet) withObject:first];
    EXPECT_EQ(first, [controller performSelector:Getter(outlet)]) << outlet;
    EXPECT_EQ(retained, [first retainCount]) << outlet;
    [controller performSelector:Setter(outlet) withObject:second];
    EXPECT_EQ(second, [controller performSelector:Getter(outlet)]) << outlet;
    EXPECT_EQ(1u, [first retainCount]) << outlet;
    EXPECT_EQ(retained, [second retainCount]) << outlet;
    [controller performSelector:Setter(outlet) withObject:nil];
    EXPECT_EQ(1u, [second retainCount]) << outlet;
    [first release];
    [second release];
  }
}

OBJC_TEST(ViewController, HasNoSettersForWhatItIsMadeOf) {
  TestPanel panel;
  EXPECT_FALSE([panel.controller() respondsToSelector:Setter("commonInfo")]);
  EXPECT_FALSE([panel.controller() respondsToSelector:Setter("ticket")]);
}

OBJC_TEST(ViewController, UnsubscribesThenGivesBackInformationThenTickets) {
  TestPanel panel({.info_class = [RecordingCommonInfo class]});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  NSArray *left = OutletObjects(controller);
  RecordTicketManager(controller);
  @autoreleasepool {
    RecordingNotifications recording(controller);
    panel.DropController();
  }
  std::vector<std::string> expected = {"unsubscribe", "information given back", "tickets gone"};
  for (int ticket = 0; ticket < 5; ++ticket) expected.push_back("information given back");
  EXPECT_EQ(expected, Events());
  GiveBackWhatWasLeft(left);
}

OBJC_TEST(ViewController, DoesNotUnsubscribeWhenItsViewWasNeverSetUp) {
  TestPanel panel;
  RecordingNotifications recording(panel.controller());
  RecordTicketManager(panel.controller());
  panel.DropController();
  EXPECT_EQ((std::vector<std::string>{"tickets gone"}), Events());
}

OBJC_TEST(ViewController, LeavesTheViewAndTheControlsWhenItGoes) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  NSArray *objects = OutletObjects(controller);
  std::vector<NSUInteger> expected;
  @autoreleasepool {
    // A ticket gives back the controls in which it shows its value.
    NSMutableArray *targets = [NSMutableArray array];
    for (velmoraBNPrintTicketRV2 *ticket in [controller.ticket BNPTMAllTicketsArray]) {
      [targets addObjectsFromArray:ticket.targetInstances];
    }
    for (NSObject *object in objects) {
      const NSUInteger lists = [targets containsObject:object] ? 2 : 0;  // the ticket's and this
      expected.push_back([object retainCount] - lists);
    }
  }
  @autoreleasepool {
    panel.DropController();
  }
  for (std::size_t i = 0; i < kOutlets.size(); ++i) {
    EXPECT_EQ(expected[i], [[objects objectAtIndex:i] retainCount]) << kOutlets[i];
  }
  GiveBackWhatWasLeft(objects);
}
