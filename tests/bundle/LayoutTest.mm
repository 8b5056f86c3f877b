#import "tests/support/BuiltBundle.h"
#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

namespace {

struct LoadedLayout {
  TestPPD ppd{"*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n"};
  id<PDEPanel> panel = NewPanel([TestHost hostWithPPD:ppd.get()]);
  NSView *view = [panel panelView];

  id operator[](NSString *outlet) const { return Outlet(panel, outlet); }
};

NSDictionary *ClassesOfOutlets() {
  return @{
    @"functionValid" : @"velmoraBNCheckBoxRV2",
    @"popUpSize" : @"velmoraBNPopUpButtonRV2",
    @"popUpDensity" : @"velmoraBNPopUpButtonRV2",
    @"popUpColor" : @"velmoraBNPopUpButtonRV2",
    @"textBoxStartNumber" : @"velmoraBNTextBoxRV2",
    @"stepperStartNumber" : @"velmoraBNStepperRV2",
    @"defaultButton" : @"velmoraBNButtonRV2",
    @"labelSize" : @"velmoraBNTextLabelRV2",
    @"labelDensity" : @"velmoraBNTextLabelRV2",
    @"labelColor" : @"velmoraBNTextLabelRV2",
    @"labelStartNumber" : @"velmoraBNTextLabelRV2",
    @"labelStartNumberRange" : @"velmoraBNTextLabelRV2",
  };
}

CGFloat RightEdge(NSView *view) { return NSMaxX([view frame]); }
CGFloat Middle(NSView *view) { return NSMidY([view frame]); }

}  // namespace

OBJC_TEST(Layout, ConnectsEveryOutletToItsClassInTheView) {
  LoadedLayout layout;
  ASSERT_NE(nil, layout.view);
  EXPECT_EQUAL_OBJECTS(layout.view, layout[@"view"]);
  NSDictionary *classes = ClassesOfOutlets();
  for (NSString *outlet in classes) {
    EXPECT_EQUAL_OBJECTS([classes objectForKey:outlet], NSStringFromClass([layout[outlet] class]));
    EXPECT_TRUE([layout[outlet] isDescendantOf:layout.view]) << [outlet UTF8String];
  }
}

OBJC_TEST(Layout, WiresTheActionsToTheController) {
  LoadedLayout layout;
  id controller = [(id)layout.panel valueForKey:@"viewController"];
  EXPECT_EQUAL_OBJECTS(controller, [layout[@"functionValid"] target]);
  EXPECT_EQUAL_OBJECTS(@"changeFunctionValid:",
                       NSStringFromSelector([layout[@"functionValid"] action]));
  EXPECT_EQUAL_OBJECTS(controller, [layout[@"defaultButton"] target]);
  EXPECT_EQUAL_OBJECTS(@"restoreDefaults:",
                       NSStringFromSelector([layout[@"defaultButton"] action]));
}

OBJC_TEST(Layout, StepperHandsItsValueToTheBox) {
  LoadedLayout layout;
  EXPECT_EQUAL_OBJECTS(layout[@"textBoxStartNumber"], [layout[@"stepperStartNumber"] target]);
  [layout[@"stepperStartNumber"] setIntegerValue:12];
  [layout[@"stepperStartNumber"] sendAction:[layout[@"stepperStartNumber"] action]
                                         to:[layout[@"stepperStartNumber"] target]];
  EXPECT_EQUAL_OBJECTS(@"12", [layout[@"textBoxStartNumber"] stringValue]);
  EXPECT_EQ(1.0, [layout[@"stepperStartNumber"] increment]);
  EXPECT_TRUE([layout[@"stepperStartNumber"] autorepeat]);
  EXPECT_FALSE([layout[@"stepperStartNumber"] valueWraps]);
}

OBJC_TEST(Layout, AttachesTheFormatterToTheBox) {
  LoadedLayout layout;
  EXPECT_EQUAL_OBJECTS(@"velmoraBNDecimalFormatterRV2",
                       NSStringFromClass([[layout[@"textBoxStartNumber"] formatter] class]));
}

OBJC_TEST(Layout, CaptionsEndAtOneLineAndControlsStartAtOne) {
  LoadedLayout layout;
  for (NSString *name in @[ @"labelDensity", @"labelColor", @"labelStartNumber" ]) {
    EXPECT_EQ(RightEdge(layout[@"labelSize"]), RightEdge(layout[name])) << [name UTF8String];
    EXPECT_EQ(NSRightTextAlignment, [layout[name] alignment]) << [name UTF8String];
  }
  for (NSString *name in @[ @"popUpDensity", @"popUpColor" ]) {
    EXPECT_EQ(NSMinX([layout[@"popUpSize"] frame]), NSMinX([layout[name] frame]));
    EXPECT_EQ(RightEdge(layout[@"popUpSize"]), RightEdge(layout[name]));
  }
}

OBJC_TEST(Layout, CaptionsStandBesideTheirControlsWithinAPoint) {
  LoadedLayout layout;
  EXPECT_NEAR(Middle(layout[@"popUpSize"]), Middle(layout[@"labelSize"]), 1);
  EXPECT_NEAR(Middle(layout[@"popUpDensity"]), Middle(layout[@"labelDensity"]), 1);
  EXPECT_NEAR(Middle(layout[@"popUpColor"]), Middle(layout[@"labelColor"]), 1);
  EXPECT_NEAR(Middle(layout[@"textBoxStartNumber"]), Middle(layout[@"labelStartNumber"]), 1);
  EXPECT_NEAR(Middle(layout[@"stepperStartNumber"]), Middle(layout[@"labelStartNumberRange"]), 1);
  EXPECT_GT(NSMinX([layout[@"labelStartNumberRange"] frame]),
            RightEdge(layout[@"stepperStartNumber"]));
}

OBJC_TEST(Layout, RestoreDefaultsIsTheControlAtTheBottomRight) {
  LoadedLayout layout;
  const NSRect button = [layout[@"defaultButton"] frame];
  NSDictionary *classes = ClassesOfOutlets();
  for (NSString *outlet in classes) {
    EXPECT_GE(NSMinY([layout[outlet] frame]), NSMinY(button)) << [outlet UTF8String];
    EXPECT_LE(RightEdge(layout[outlet]), NSMaxX(button)) << [outlet UTF8String];
  }
}

OBJC_TEST(Layout, ControlsLieInsideTheViewAndDoNotOverlap) {
  LoadedLayout layout;
  NSArray *outlets = [ClassesOfOutlets() allKeys];
  for (NSString *first in outlets) {
    EXPECT_TRUE(NSContainsRect([layout.view bounds], [layout[first] frame])) << [first UTF8String];
    for (NSString *second in outlets) {
      if (first == second) continue;
      EXPECT_FALSE(NSIntersectsRect([layout[first] frame], [layout[second] frame]))
          << [first UTF8String] << " and " << [second UTF8String];
    }
  }
}

OBJC_TEST(Layout, CaptionsAreNoTabStops) {
  LoadedLayout layout;
  for (NSString *outlet in ClassesOfOutlets()) {
    if ([outlet hasPrefix:@"label"]) {
      EXPECT_FALSE([layout[outlet] isEditable]) << [outlet UTF8String];
      EXPECT_FALSE([layout[outlet] acceptsFirstResponder]) << [outlet UTF8String];
    }
  }
}

OBJC_TEST(Layout, KeyViewLoopRunsFromTopToBottom) {
  LoadedLayout layout;
  NSArray *order = @[
    @"functionValid", @"popUpSize", @"popUpDensity", @"popUpColor", @"textBoxStartNumber",
    @"stepperStartNumber", @"defaultButton", @"functionValid"
  ];
  EXPECT_EQUAL_OBJECTS(layout[@"functionValid"], [layout.view nextKeyView]);
  for (NSUInteger index = 0; index + 1 < [order count]; ++index) {
    EXPECT_EQUAL_OBJECTS(layout[[order objectAtIndex:index + 1]],
                         [layout[[order objectAtIndex:index]] nextKeyView]);
  }
}

// What the platform does not know of the layout, it may complain of.
OBJC_TEST(Layout, IsReadWithoutAWordInTheLog) {
  TestPPD ppd("*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n");
  id<PDEPanel> panel = NewPanel([TestHost hostWithPPD:ppd.get()]);
  interposed::Clear();
  EXPECT_NE(nil, [panel panelView]);
  EXPECT_EQ(std::vector<std::string>(), interposed::Calls("log "));
}

OBJC_TEST(Layout, EveryTextFitsItsControl) {
  LoadedLayout layout;
  for (NSString *outlet in ClassesOfOutlets()) {
    NSControl *control = layout[outlet];
    if ([control isKindOfClass:NSClassFromString(@"NSStepper")]) continue;
    EXPECT_LE([[control cell] cellSize].width, [control frame].size.width) << [outlet UTF8String];
  }
}
