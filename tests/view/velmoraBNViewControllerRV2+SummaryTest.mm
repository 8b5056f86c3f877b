#import "view/velmoraBNViewControllerRV2+Summary.h"

#include <string>
#include <vector>

#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

namespace {

constexpr char kStrings[] =
    "\"EnableFunction\" = \"Numbering\"; \"On\" = \"in use\"; \"Off\" = \"not in use\";"
    "\"Size\" = \"Height\"; \"Density\" = \"Strength\"; \"Color\" = \"Ink\";"
    "\"StartNumber\" = \"First\"; \"57\" = \"fifty-seven\"; \"Size_Large\" = \"tall\";"
    "\"Density_Dark\" = \"strong\"; \"Color_Red\" = \"red ink\"; \"Color_Black\" = \"black ink\";";

NSMutableDictionary *StoredWith(NSString *valid) {
  return [NSMutableDictionary dictionaryWithDictionary:@{
    @"VQBackgroundNumbering" : valid,
    @"VQBNSize" : @"Large",
    @"VQBNDensity" : @"Dark",
    @"VQBNColor" : @"Red",
    @"VQStartNumber" : @"57"
  }];
}

NSDictionary *Summary(TestPanel &panel) {
  return [panel.controller() summaryInfoWithDispOrderKey:@"Order"];
}

}  // namespace

OBJC_TEST(Summary, PairsLocalizedTitlesWithValuesWhenOn) {
  TestPanel panel({.strings = kStrings, .stored = StoredWith(@"On")});
  EXPECT_EQUAL_OBJECTS((@{
                         @"Height" : @"tall",
                         @"Strength" : @"strong",
                         @"Ink" : @"red ink",
                         @"First" : @"57",
                         @"Order" : @[ @"Height", @"Strength", @"Ink", @"First" ]
                       }),
                       Summary(panel));
}

OBJC_TEST(Summary, ShowsKeysWithoutTranslations) {
  TestPanel panel({.stored = StoredWith(@"On")});
  EXPECT_EQUAL_OBJECTS((@{
                         @"Size" : @"Size_Large",
                         @"Density" : @"Density_Dark",
                         @"Color" : @"Color_Red",
                         @"StartNumber" : @"57",
                         @"Order" : @[ @"Size", @"Density", @"Color", @"StartNumber" ]
                       }),
                       Summary(panel));
}

OBJC_TEST(Summary, IsTheOnOffValueAloneWhenOff) {
  TestPanel panel({.strings = kStrings, .stored = StoredWith(@"Off")});
  EXPECT_EQUAL_OBJECTS((@{@"Numbering" : @"not in use"}), Summary(panel));
}

OBJC_TEST(Summary, TakesAnyOtherSpellingForOff) {
  for (NSString *value in @[ @"ON", @"on", @"On ", @"", @"True" ]) {
    TestPanel panel({.strings = kStrings, .stored = StoredWith(value)});
    EXPECT_EQUAL_OBJECTS((@{@"Numbering" : value}), Summary(panel));
  }
}

OBJC_TEST(Summary, ShowsTheDefaultsOfAJobThatOnlySaysOn) {
  TestPanel panel({ .stored = @{@"VQBackgroundNumbering" : @"On"} });
  NSDictionary *summary = Summary(panel);
  EXPECT_EQUAL_OBJECTS(@"Size_Medium", [summary objectForKey:@"Size"]);
  EXPECT_EQUAL_OBJECTS(@"Density_Medium", [summary objectForKey:@"Density"]);
  EXPECT_EQUAL_OBJECTS(@"Color_Black", [summary objectForKey:@"Color"]);
  EXPECT_EQUAL_OBJECTS(@"1", [summary objectForKey:@"StartNumber"]);
}

OBJC_TEST(Summary, ShowsTheDefaultsWithoutPrintSettings) {
  NSMutableDictionary *info = SettingInfoWith(@"DefaultValue", @"Valid", @"On");
  [[info objectForKey:@"DefaultValue"] setObject:@"33" forKey:@"StartNumber"];
  TestPanel panel({.setting_info = info, .print_settings = false});
  EXPECT_EQUAL_OBJECTS((@{
                         @"Size" : @"Size_Medium",
                         @"Density" : @"Density_Medium",
                         @"Color" : @"Color_Black",
                         @"StartNumber" : @"33",
                         @"Order" : @[ @"Size", @"Density", @"Color", @"StartNumber" ]
                       }),
                       Summary(panel));
}

OBJC_TEST(Summary, ShowsBlackOnAPrinterWithoutColor) {
  TestPanel panel({.strings = kStrings, .ppd_lines = kMonoDevice, .stored = StoredWith(@"On")});
  [panel.host() setValue:@"Red" forSetting:@"VQBNColor"];
  EXPECT_EQUAL_OBJECTS(@"black ink", [Summary(panel) objectForKey:@"Ink"]);
  EXPECT_EQUAL_OBJECTS(@"Black", [panel.host() valueForSetting:@"VQBNColor"]);
}

OBJC_TEST(Summary, AsksTheTicketsInOrderWhenOn) {
  TestPanel panel({.stored = StoredWith(@"On")});
  RecordTicketManager(panel.controller());
  interposed::Clear();
  Summary(panel);
  EXPECT_EQ((std::vector<std::string>{"restore Valid", "restore Size", "restore Density",
                                      "restore Color", "restore StartNumber"}),
            Events());
  EXPECT_EQ((std::vector<std::string>{"get VQBackgroundNumbering", "get VQBNSize",
                                      "get VQBNDensity", "get VQBNColor", "get VQStartNumber"}),
            interposed::Calls("get "));
}

OBJC_TEST(Summary, AsksNoOtherTicketWhenOff) {
  TestPanel panel({.stored = StoredWith(@"Off")});
  interposed::Clear();
  Summary(panel);
  EXPECT_EQ((std::vector<std::string>{"get VQBackgroundNumbering"}), interposed::Calls("get "));
}

OBJC_TEST(Summary, ShowsTheStoredValuesInTheControls) {
  TestPanel panel({.stored = StoredWith(@"On")});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  Summary(panel);
  EXPECT_EQ(1, [controller.functionValid state]);
  EXPECT_EQUAL_OBJECTS(@"Size_Large", [controller.popUpSize titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Density_Dark", [controller.popUpDensity titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Color_Red", [controller.popUpColor titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"57", [controller.textBoxStartNumber stringValue]);
  EXPECT_EQ(57, [controller.stepperStartNumber integerValue]);
}

OBJC_TEST(Summary, ShowsOnlyTheCheckBoxsValueWhenOff) {
  TestPanel panel({.stored = StoredWith(@"Off")});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.functionValid setState:1];
  [controller.popUpSize selectItemAtIndex:0];
  [controller.textBoxStartNumber setStringValue:@"5"];
  Summary(panel);
  EXPECT_EQ(0, [controller.functionValid state]);
  EXPECT_EQUAL_OBJECTS(@"Size_Small", [controller.popUpSize titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"5", [controller.textBoxStartNumber stringValue]);
}

OBJC_TEST(Summary, IsANewMutableDictionaryEachTime) {
  for (NSString *valid in @[ @"On", @"Off" ]) {
    TestPanel panel({.stored = StoredWith(valid)});
    NSDictionary *summary = Summary(panel);
    EXPECT_TRUE([summary isKindOfClass:[NSMutableDictionary class]]);
    EXPECT_NE(summary, Summary(panel));
  }
}

OBJC_TEST(Summary, IsNotOwnedByTheCaller) {
  TestPanel panel({.stored = StoredWith(@"On")});
  NSDictionary *summary = nil;
  @autoreleasepool {
    summary = [Summary(panel) retain];
  }
  EXPECT_EQ(1u, [summary retainCount]);
  [summary release];
}

OBJC_TEST(Summary, CannotBeMadeWithoutAnOrderKeyWhenOn) {
  TestPanel panel({.stored = StoredWith(@"On")});
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                       NameOfRaised([&] { [panel.controller() summaryInfoWithDispOrderKey:nil]; }));
}

OBJC_TEST(Summary, NeedsNoOrderKeyWhenOff) {
  TestPanel panel({.stored = StoredWith(@"Off")});
  EXPECT_EQUAL_OBJECTS((@{@"EnableFunction" : @"Off"}),
                       [panel.controller() summaryInfoWithDispOrderKey:nil]);
}
