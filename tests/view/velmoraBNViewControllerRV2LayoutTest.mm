#include <string>
#include <vector>

#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"
#import "view/velmoraBNDecimalFormatterRV2.h"

namespace {
int changes_handled = 0;
int setups = 0;
}  // namespace

// Counts how often its view is set up and how often it is told of changed text.
@interface CountingViewController : velmoraBNViewControllerRV2
@end

@implementation CountingViewController

- (void)BNVCInitializeView {
  ++setups;
  [super BNVCInitializeView];
}

- (void)controlTextDidChange:(NSNotification *)notification {
  ++changes_handled;
  [super controlTextDidChange:notification];
}

@end

namespace {

int ChangesHandledForOnePost(id sender) {
  changes_handled = 0;
  [[NSNotificationCenter defaultCenter] postNotificationName:NSControlTextDidChangeNotification
                                                      object:sender];
  return changes_handled;
}

// What loading a layout that leaves this outlet unconnected raises.
NSString *RaisedWithout(TestPanel &panel, NSString *outlet) {
  NSString *layout = [@"Without-" stringByAppendingString:outlet];
  return NameOfRaised([&] { [panel.controller() panelViewWithNibName:layout]; });
}

}  // namespace

OBJC_TEST(PanelLayout, GivesEveryOutletAControlOfItsClass) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  for (id label in Labels(controller)) {
    EXPECT_TRUE([label isMemberOfClass:[velmoraBNTextLabelRV2 class]]);
  }
  for (id popUp in PopUps(controller)) {
    EXPECT_TRUE([popUp isMemberOfClass:[velmoraBNPopUpButtonRV2 class]]);
  }
  EXPECT_TRUE([controller.textBoxStartNumber isMemberOfClass:[velmoraBNTextBoxRV2 class]]);
  EXPECT_TRUE([controller.stepperStartNumber isMemberOfClass:[velmoraBNStepperRV2 class]]);
  EXPECT_TRUE([controller.functionValid isMemberOfClass:[velmoraBNCheckBoxRV2 class]]);
  EXPECT_TRUE([controller.defaultButton isMemberOfClass:[velmoraBNButtonRV2 class]]);
  NSMutableSet *different = [NSMutableSet setWithArray:Labels(controller)];
  [different addObjectsFromArray:PopUps(controller)];
  EXPECT_EQ(8u, [different count]);
}

OBJC_TEST(PanelLayout, PutsEveryControlIntoTheView) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  NSArray *others = @[
    controller.textBoxStartNumber, controller.stepperStartNumber, controller.functionValid,
    controller.defaultButton
  ];
  NSArray *controls = [[Labels(controller) arrayByAddingObjectsFromArray:PopUps(controller)]
      arrayByAddingObjectsFromArray:others];
  for (NSView *control in controls) EXPECT_TRUE([control isDescendantOf:controller.view]);
}

OBJC_TEST(PanelLayout, AttachesTheFormatterToTheTextBox) {
  TestPanel panel;
  EXPECT_TRUE([[panel.Load().textBoxStartNumber formatter]
      isMemberOfClass:[velmoraBNDecimalFormatterRV2 class]]);
}

OBJC_TEST(PanelLayout, SendsTheActionsToTheController) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQ(controller, [controller.functionValid target]);
  EXPECT_TRUE(sel_isEqual(@selector(changeFunctionValid:), [controller.functionValid action]));
  EXPECT_EQ(controller, [controller.defaultButton target]);
  EXPECT_TRUE(sel_isEqual(@selector(restoreDefaults:), [controller.defaultButton action]));
}

OBJC_TEST(PanelLayout, PutsTheSteppersNumberIntoTheTextBox) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.stepperStartNumber setIntegerValue:57];
  [controller.stepperStartNumber sendAction:[controller.stepperStartNumber action]
                                         to:[controller.stepperStartNumber target]];
  EXPECT_EQUAL_OBJECTS(@"57", [controller.textBoxStartNumber stringValue]);
}

OBJC_TEST(PanelView, IsLoadedAndSetUpOnTheFirstCall) {
  TestPanel panel;
  NSView *view = [panel.controller() panelViewWithNibName:@"BackgroundNumbering"];
  EXPECT_NE(nil, view);
  EXPECT_EQ(view, panel.controller().view);
  EXPECT_EQ(YES, panel.controller().viewIsInited);
}

OBJC_TEST(PanelView, IsAnsweredAgainWhateverTheName) {
  setups = 0;
  TestPanel panel({.controller_class = [CountingViewController class]});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  NSView *view = controller.view;
  velmoraBNTextBoxRV2 *textBox = controller.textBoxStartNumber;
  for (NSString *name in @[ @"BackgroundNumbering", @"NoSuchLayout", @"" ]) {
    EXPECT_EQ(view, [controller panelViewWithNibName:name]);
  }
  EXPECT_EQ(view, [controller panelViewWithNibName:nil]);
  EXPECT_EQ(1, setups);
  EXPECT_EQ(textBox, controller.textBoxStartNumber);
  EXPECT_EQ(1, ChangesHandledForOnePost(textBox));
}

OBJC_TEST(PanelView, IsAnsweredWithoutSetUpWhenItIsThereAlready) {
  TestPanel panel;
  panel.controller().view = [[[NSView alloc] initWithFrame:NSZeroRect] autorelease];
  [panel.controller().view retain];  // in place of the loader's reference
  EXPECT_EQ(panel.controller().view,
            [panel.controller() panelViewWithNibName:@"BackgroundNumbering"]);
  EXPECT_EQ(NO, panel.controller().viewIsInited);
  EXPECT_EQUAL_OBJECTS(nil, panel.controller().textBoxStartNumber);
}

OBJC_TEST(PanelView, CannotBeHadFromALayoutThatIsNotFound) {
  TestPanel panel;
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException, NameOfRaised([&] {
                         [panel.controller() panelViewWithNibName:@"NoSuchLayout"];
                       }));
  EXPECT_EQUAL_OBJECTS(nil, panel.controller().view);
  EXPECT_EQ(NO, panel.controller().viewIsInited);
}

OBJC_TEST(PanelView, IsSetUpWithWhatIsThereWhenNothingCouldBeLoaded) {
  setups = 0;
  TestPanel panel({.controller_class = [CountingViewController class]});
  NameOfRaised([&] { [panel.controller() panelViewWithNibName:@"NoSuchLayout"]; });
  EXPECT_EQ(1, setups);
}

OBJC_TEST(PanelView, CannotBeHadWithoutAControlOfATable) {
  for (NSString *outlet in @[
         @"labelSize", @"labelDensity", @"labelColor", @"labelStartNumber", @"popUpSize",
         @"popUpDensity", @"popUpColor", @"functionValid", @"textBoxStartNumber",
         @"stepperStartNumber"
       ]) {
    TestPanel panel;
    EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException, RaisedWithout(panel, outlet))
        << [outlet UTF8String];
    EXPECT_NE(nil, panel.controller().view) << "the layout itself is complete and was loaded";
    EXPECT_EQ(NO, panel.controller().viewIsInited) << [outlet UTF8String];
  }
}

OBJC_TEST(PanelView, CannotBeGreyedWithoutAControlOfTheGreyedList) {
  for (NSString *outlet in @[ @"defaultButton", @"labelStartNumberRange" ]) {
    TestPanel panel;
    EXPECT_EQUAL_OBJECTS(@"", RaisedWithout(panel, outlet));
    EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                         NameOfRaised([&] { [panel.controller() updateView]; }))
        << [outlet UTF8String];
  }
}

OBJC_TEST(PanelView, HasItsCaptionsAndMenusBeforeTicketsAreBound) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.controller();
  RaisedWithout(panel, @"functionValid");
  EXPECT_EQUAL_OBJECTS(@"Size:", [controller.labelSize stringValue]);
  EXPECT_EQ(3, [controller.popUpSize numberOfItems]);
  EXPECT_EQUAL_OBJECTS(nil, [controller.textBoxStartNumber identifier]);
}

OBJC_TEST(PanelView, HasItsCaptionsBeforeItsMenus) {
  TestPanel panel;
  RaisedWithout(panel, @"popUpColor");
  EXPECT_EQUAL_OBJECTS(@"Size:", [panel.controller().labelSize stringValue]);
  EXPECT_EQ(0, [panel.controller().popUpSize numberOfItems]);
}

OBJC_TEST(LayoutWithoutView, AnswersNilEachTime) {
  TestPanel panel;
  EXPECT_EQUAL_OBJECTS(nil, [panel.controller() panelViewWithNibName:@"Without-view"]);
  NSView *first = [panel.controller().textBoxStartNumber superview];
  EXPECT_EQ(YES, panel.controller().viewIsInited);
  EXPECT_EQUAL_OBJECTS(nil, [panel.controller() panelViewWithNibName:@"Without-view"]);
  [first release];
}

OBJC_TEST(LayoutWithoutView, IsLoadedAndSetUpAgainAtEveryCall) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.controller();
  RecordTicketManager(controller);
  [controller panelViewWithNibName:@"Without-view"];
  std::vector<std::string> once = Events();
  NSView *first = [controller.textBoxStartNumber superview];
  velmoraBNTextBoxRV2 *firstTextBox = controller.textBoxStartNumber;
  Events().clear();
  [controller panelViewWithNibName:@"Without-view"];
  EXPECT_EQ(6u, once.size()) << "five tickets and the title";
  EXPECT_EQ(once, Events());
  EXPECT_NE(firstTextBox, controller.textBoxStartNumber);
  NSArray *targets = @[ controller.textBoxStartNumber, controller.stepperStartNumber ];
  EXPECT_EQUAL_OBJECTS(targets, controller.ticket.ticketStartNumber.targetInstances);
  EXPECT_EQ(3, [controller.popUpSize numberOfItems]);
  [first release];
}

OBJC_TEST(LayoutWithoutView, AddsOneSubscriptionAtEveryCall) {
  TestPanel panel({.controller_class = [CountingViewController class]});
  velmoraBNViewControllerRV2 *controller = panel.controller();
  RecordingNotifications recording(controller);
  NSMutableArray *views = [NSMutableArray array];
  for (std::size_t call = 1; call <= 3; ++call) {
    [controller panelViewWithNibName:@"Without-view"];
    EXPECT_EQ(call, Events().size());
    EXPECT_EQ(1, ChangesHandledForOnePost(controller.textBoxStartNumber));
    [views addObject:[controller.textBoxStartNumber superview]];
  }
  [[views objectAtIndex:0] release];
  [[views objectAtIndex:1] release];
}

OBJC_TEST(SetUp, MayRunAgainAndThenHandlesEveryChangeTwice) {
  TestPanel panel({.controller_class = [CountingViewController class]});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller BNVCInitializeView];
  EXPECT_EQ(2, ChangesHandledForOnePost(controller.textBoxStartNumber));
  EXPECT_EQ(3, [controller.popUpSize numberOfItems]);
  EXPECT_EQ(2u, [controller.ticket.ticketStartNumber.targetInstances count]);
}
