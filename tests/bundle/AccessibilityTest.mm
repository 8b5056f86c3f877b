// What the layout says to assistive technology. GNUstep has none and reads over it, so it is read
// from the file.

#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

namespace {

NSXMLDocument *LayoutFile() {
  NSString *path = [BuiltBundle() pathForResource:@"BackgroundNumbering" ofType:@"xib"];
  return [[[NSXMLDocument alloc] initWithData:[NSData dataWithContentsOfFile:path]
                                      options:0
                                        error:nullptr] autorelease];
}

NSArray *Found(NSString *xpath) { return [LayoutFile() nodesForXPath:xpath error:nullptr]; }

// The identifiers, which are the outlets' names, of what a control is tied to.
NSArray *Ties(NSString *control, NSString *property) {
  NSString *xpath = [NSString
      stringWithFormat:@"//*[@id='%@']/connections/accessibilityConnection[@property='%@']",
                       control, property];
  NSMutableArray *ties = [NSMutableArray array];
  for (NSXMLElement *tie in Found(xpath)) {
    [ties addObject:[[tie attributeForName:@"destination"] stringValue]];
  }
  return ties;
}

NSArray *ControlsWithACaption() {
  return @[
    @"popUpSize", @"popUpDensity", @"popUpColor", @"textBoxStartNumber", @"stepperStartNumber"
  ];
}

}  // namespace

OBJC_TEST(Accessibility, EveryControlHasATitleOfItsOwnOrIsTiedToOneCaption) {
  NSArray *controls = Found(@"//subviews/*[not(starts-with(@id, 'label'))]");
  EXPECT_EQ(7u, [controls count]);
  for (NSXMLElement *control in controls) {
    NSString *name = [[control attributeForName:@"id"] stringValue];
    const bool titled = [[control nodesForXPath:@"buttonCell[@title!='']" error:nullptr] count] > 0;
    EXPECT_EQ(titled ? 0u : 1u, [Ties(name, @"title") count]) << [name UTF8String];
  }
}

OBJC_TEST(Accessibility, TheCaptionThatAControlIsTiedToStandsBeforeIt) {
  TestPPD ppd("*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n");
  id<PDEPanel> panel = NewPanel([TestHost hostWithPPD:ppd.get()]);
  ASSERT_NE(nil, [panel panelView]);
  for (NSString *name in ControlsWithACaption()) {
    NSView *control = Outlet(panel, name);
    NSView *caption = Outlet(panel, [Ties(name, @"title") lastObject]);
    EXPECT_EQUAL_OBJECTS(@"velmoraBNTextLabelRV2", NSStringFromClass([caption class]));
    EXPECT_NEAR(NSMidY([control frame]), NSMidY([caption frame]), 1) << [name UTF8String];
    EXPECT_LT(NSMaxX([caption frame]), NSMinX([control frame])) << [name UTF8String];
  }
}

OBJC_TEST(Accessibility, TheRangeGoesWithTheStartNumberAndThatWithItsStepper) {
  EXPECT_EQUAL_OBJECTS(@[ @"labelStartNumberRange" ], Ties(@"textBoxStartNumber", @"link"));
  EXPECT_EQUAL_OBJECTS(@[ @"textBoxStartNumber" ], Ties(@"stepperStartNumber", @"link"));
}

// The controller translates captions and titles; nothing else of the layout ever changes.
OBJC_TEST(Accessibility, NothingIsSaidInOneLanguageOnly) {
  EXPECT_EQ(0u, [Found(@"//@toolTip") count]);
  EXPECT_EQ(0u, [Found(@"//accessibility") count]);
  EXPECT_EQ(0u, [Found(@"//@placeholderString") count]);
}
