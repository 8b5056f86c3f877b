#import "tests/support/BuiltBundle.h"
#import "tests/support/LiveInstances.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

namespace {

const int kPanels = 200;

long Live(NSString *className) { return LiveInstances(NSClassFromString(className)); }

void OpenAndDropPanel(ppd_file_t *ppd) {
  @autoreleasepool {
    TestHost *host = [TestHost hostWithPPD:ppd];
    id<PDEPanel> panel = NewPanel(host);
    NSWindow *window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 500, 300)
                                                    styleMask:NSTitledWindowMask
                                                      backing:NSBackingStoreBuffered
                                                        defer:YES] autorelease];
    [window setReleasedWhenClosed:NO];
    [[window contentView] addSubview:[panel panelView]];
    [panel willShow];
    [panel saveValuesAndReturnError:nullptr];
    [panel summaryInfo];
    [panel supportedPPDOptionKeys];
    [[panel panelView] removeFromSuperview];
  }
}

}  // namespace

// The dialog may still show the view when it drops the panel, so a panel leaves its view with all
// controls behind, on purpose; everything else of it goes.
OBJC_TEST(Instances, ADroppedPanelLeavesItsViewAndItsControlsAndNothingElse) {
  TestPPD ppd("*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n");
  OpenAndDropPanel(ppd.get());  // what is made once
  NSDictionary *leftByEachPanel = @{
    @"velmoraBNPdePluginRV2" : @0,
    @"velmoraBNPdePanelRV2" : @0,
    @"velmoraBNPdeCallbackRV2" : @0,
    @"velmoraBNCommonInfoRV2" : @0,
    @"velmoraBNPrintTicketManagerRV2" : @0,
    @"velmoraBNPrintTicketRV2" : @0,
    @"velmoraBNPrintTicketValidRV2" : @0,
    @"velmoraBNPrintTicketPopUpRV2" : @0,
    @"velmoraBNPrintTicketNumberRV2" : @0,
    @"velmoraBNViewControllerRV2" : @0,
    @"NSView" : @7,  // the panel's own, and the platform's two for the menu of each pop-up
    @"velmoraBNCheckBoxRV2" : @1,
    @"velmoraBNPopUpButtonRV2" : @3,
    @"velmoraBNTextBoxRV2" : @1,
    @"velmoraBNStepperRV2" : @1,
    @"velmoraBNButtonRV2" : @1,
    @"velmoraBNTextLabelRV2" : @5,
    @"velmoraBNDecimalFormatterRV2" : @1,
  };
  NSMutableDictionary *before = [NSMutableDictionary dictionary];
  for (NSString *name in leftByEachPanel) {
    ASSERT_NE(nil, NSClassFromString(name)) << [name UTF8String];
    [before setObject:[NSNumber numberWithLong:Live(name)] forKey:name];
  }
  const long hosts = Live(@"TestHost");
  for (int panel = 0; panel < kPanels; ++panel) OpenAndDropPanel(ppd.get());
  for (NSString *name in leftByEachPanel) {
    EXPECT_EQ(kPanels * [[leftByEachPanel objectForKey:name] longValue],
              Live(name) - [[before objectForKey:name] longValue])
        << [name UTF8String];
  }
  EXPECT_EQ(hosts, Live(@"TestHost"));
}

OBJC_TEST(Instances, APanelThatWasNeverShownLeavesNothing) {
  TestPPD ppd("*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n");
  BuiltBundle();
  const long controllers = Live(@"velmoraBNViewControllerRV2");
  const long labels = Live(@"velmoraBNTextLabelRV2");
  for (int panel = 0; panel < kPanels; ++panel) {
    @autoreleasepool {
      [NewPanel([TestHost hostWithPPD:ppd.get()]) shouldPrint];
    }
  }
  EXPECT_EQ(controllers, Live(@"velmoraBNViewControllerRV2"));
  EXPECT_EQ(labels, Live(@"velmoraBNTextLabelRV2"));
}
