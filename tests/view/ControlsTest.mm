#include <objc/runtime.h>

#include <cstdlib>

#import "tests/support/ObjCTest.h"
#import "view/velmoraBNButtonRV2.h"
#import "view/velmoraBNCheckBoxRV2.h"
#import "view/velmoraBNPopUpButtonRV2.h"
#import "view/velmoraBNStepperRV2.h"
#import "view/velmoraBNTextBoxRV2.h"
#import "view/velmoraBNTextLabelRV2.h"

namespace {

NSArray *SwitchedClasses() {
  return @[
    [velmoraBNCheckBoxRV2 class], [velmoraBNPopUpButtonRV2 class], [velmoraBNTextBoxRV2 class],
    [velmoraBNButtonRV2 class], [velmoraBNStepperRV2 class]
  ];
}

id Make(Class control) {
  return [[[control alloc] initWithFrame:NSMakeRect(0, 0, 100, 25)] autorelease];
}

std::string Name(Class control) { return [NSStringFromClass(control) UTF8String]; }

int OwnFields(Class control) {
  unsigned count = 0;
  free(class_copyIvarList(control, &count));
  return static_cast<int>(count);
}

}  // namespace

OBJC_TEST(Controls, DeriveFromThePlatformControls) {
  EXPECT_EQUAL_OBJECTS([NSButton class], class_getSuperclass([velmoraBNCheckBoxRV2 class]));
  EXPECT_EQUAL_OBJECTS([NSPopUpButton class], class_getSuperclass([velmoraBNPopUpButtonRV2 class]));
  EXPECT_EQUAL_OBJECTS([NSTextField class], class_getSuperclass([velmoraBNTextBoxRV2 class]));
  EXPECT_EQUAL_OBJECTS([NSButton class], class_getSuperclass([velmoraBNButtonRV2 class]));
  EXPECT_EQUAL_OBJECTS([NSStepper class], class_getSuperclass([velmoraBNStepperRV2 class]));
  EXPECT_EQUAL_OBJECTS([NSTextField class], class_getSuperclass([velmoraBNTextLabelRV2 class]));
}

OBJC_TEST(Controls, AreViewComponents) {
  // Looked up by its name, the way the runtime finds the protocol that the classes declare.
  for (Class control in SwitchedClasses()) {
    EXPECT_TRUE([control conformsToProtocol:NSProtocolFromString(@"ViewComponent")])
        << Name(control);
  }
  EXPECT_TRUE([velmoraBNTextLabelRV2 conformsToProtocol:NSProtocolFromString(@"ViewComponent")]);
}

OBJC_TEST(Controls, HoldNothingOfTheirOwnButTheTextBox) {
  for (Class control in SwitchedClasses()) {
    EXPECT_EQ(control == [velmoraBNTextBoxRV2 class] ? 2 : 0, OwnFields(control)) << Name(control);
  }
  EXPECT_EQ(0, OwnFields([velmoraBNTextLabelRV2 class]));
}

OBJC_TEST(Controls, AreDisabledByZero) {
  for (Class control in SwitchedClasses()) {
    id one = Make(control);
    [one setEnabled:YES];
    [one changeState:[NSNumber numberWithBool:NO]];
    EXPECT_FALSE([one isEnabled]) << Name(control);
  }
}

OBJC_TEST(Controls, AreEnabledByAnyOtherNumber) {
  for (Class control in SwitchedClasses()) {
    id one = Make(control);
    for (NSNumber *number in @[ [NSNumber numberWithBool:YES], @2, @-1, @256, @0.5 ]) {
      [one setEnabled:NO];
      [one changeState:number];
      EXPECT_TRUE([one isEnabled]) << Name(control) << " " << [number doubleValue];
    }
  }
}

OBJC_TEST(Controls, KeepTheirValueWhenSwitched) {
  velmoraBNCheckBoxRV2 *checkBox = Make([velmoraBNCheckBoxRV2 class]);
  [checkBox setButtonType:NSSwitchButton];
  [checkBox setState:NSControlStateValueOn];
  velmoraBNPopUpButtonRV2 *popUp = Make([velmoraBNPopUpButtonRV2 class]);
  [popUp addItemsWithTitles:@[ @"One", @"Two" ]];
  [popUp selectItemAtIndex:1];
  velmoraBNTextBoxRV2 *textBox = Make([velmoraBNTextBoxRV2 class]);
  [textBox setStringValue:@"7"];
  [textBox setTextColor:[NSColor redColor]];
  velmoraBNStepperRV2 *stepper = Make([velmoraBNStepperRV2 class]);
  [stepper setDoubleValue:5];
  for (NSNumber *active in @[ [NSNumber numberWithBool:NO], [NSNumber numberWithBool:YES] ]) {
    for (id<ViewComponent> control in @[ checkBox, popUp, textBox, stepper ]) {
      [control changeState:active];
    }
    EXPECT_EQ(NSControlStateValueOn, [checkBox state]);
    EXPECT_EQ(1, [popUp indexOfSelectedItem]);
    EXPECT_EQUAL_OBJECTS(@"7", [textBox stringValue]);
    EXPECT_EQUAL_OBJECTS([NSColor redColor], [textBox textColor]);
    EXPECT_EQ(5, [stepper doubleValue]);
  }
}

OBJC_TEST(TextLabel, TurnsLightGreyForFalseAndBlackForTrue) {
  velmoraBNTextLabelRV2 *label = Make([velmoraBNTextLabelRV2 class]);
  [label setTextColor:[NSColor redColor]];
  [label changeState:[NSNumber numberWithBool:NO]];
  EXPECT_EQUAL_OBJECTS([NSColor lightGrayColor], [label textColor]);
  [label changeState:[NSNumber numberWithBool:YES]];
  EXPECT_EQUAL_OBJECTS([NSColor blackColor], [label textColor]);
}

OBJC_TEST(TextLabel, IsNeitherEnabledNorDisabled) {
  velmoraBNTextLabelRV2 *label = Make([velmoraBNTextLabelRV2 class]);
  [label setEnabled:YES];
  [label changeState:[NSNumber numberWithBool:NO]];
  EXPECT_TRUE([label isEnabled]);
  [label setEnabled:NO];
  [label changeState:[NSNumber numberWithBool:YES]];
  EXPECT_FALSE([label isEnabled]);
}
