#include <string>
#include <vector>

#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"

// Notes the steps of its set-up.
@interface RecordingViewController : velmoraBNViewControllerRV2
@end

@implementation RecordingViewController

- (void)BNVCInitializeLabel {
  Events().push_back("captions");
  [super BNVCInitializeLabel];
}

- (void)BNVCInitializePopUp {
  Events().push_back("menus");
  [super BNVCInitializePopUp];
}

- (void)BNVCInitializeTicket {
  Events().push_back("tickets");
  [super BNVCInitializeTicket];
}

- (void)BNVCInitializeNumberValue {
  Events().push_back([[self.defaultButton title] isEqual:@"Reset"] ? "button, number" : "number");
  [super BNVCInitializeNumberValue];
}

- (void)setViewIsInited:(signed char)viewIsInited {
  Events().push_back(viewIsInited ? "set up" : "not set up");
  [super setViewIsInited:viewIsInited];
}

@end

namespace {

NSString *RangeCaption(const std::string &format, NSString *minLabel = @"[MIN]",
                       NSString *maxLabel = @"[MAX]", id min = @1, id max = @999) {
  NSMutableDictionary *info = SettingInfoWith(@"Wording", @"MinLabelForValueRange", minLabel);
  [[info objectForKey:@"Wording"] setObject:maxLabel forKey:@"MaxLabelForValueRange"];
  [[info objectForKey:@"DefaultValue"] setObject:min forKey:@"StartNumberMin"];
  [[info objectForKey:@"DefaultValue"] setObject:max forKey:@"StartNumberMax"];
  TestPanel panel(
      {.setting_info = info, .strings = "\"IntegerValueRangeFormat\" = \"" + format + "\";"});
  // The text is the label's, which goes with the panel.
  return [[[panel.Load().labelStartNumberRange stringValue] copy] autorelease];
}

NSArray *RawItems(NSPopUpButton *popUp) {
  return [[popUp itemArray] valueForKey:@"representedObject"];
}

// What set-up raises when the setting info lacks this entry.
NSString *RaisedWithoutEntry(NSString *section, NSString *entry) {
  TestPanel panel({.setting_info = SettingInfoWith(section, entry, nil)});
  return NameOfRaised([&] { panel.Load(); });
}

}  // namespace

OBJC_TEST(SetUp, TakesItsStepsInOrder) {
  TestPanel panel({.strings = "\"RestoreDefaults\" = \"Reset\";",
                   .controller_class = [RecordingViewController class]});
  Events().clear();
  panel.Load();
  EXPECT_EQ((std::vector<std::string>{"captions", "menus", "tickets", "button, number", "set up"}),
            Events());
}

OBJC_TEST(Captions, AreLocalizedAndGetAColon) {
  TestPanel panel(
      {.strings = "\"Size\" = \"Height\"; \"Density\" = \"Strength\"; \"Color\" = "
                  "\"Ink\"; \"StartNumber\" = \"First\"; \":\" = \"?\"; \"Height:\" = \"?\";"});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS(@"Height:", [controller.labelSize stringValue]);
  EXPECT_EQUAL_OBJECTS(@"Strength:", [controller.labelDensity stringValue]);
  EXPECT_EQUAL_OBJECTS(@"Ink:", [controller.labelColor stringValue]);
  EXPECT_EQUAL_OBJECTS(@"First:", [controller.labelStartNumber stringValue]);
}

OBJC_TEST(Captions, ShowTheirKeyAndAColonWithoutATranslation) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS(@"Size:", [controller.labelSize stringValue]);
  EXPECT_EQUAL_OBJECTS(@"Density:", [controller.labelDensity stringValue]);
  EXPECT_EQUAL_OBJECTS(@"Color:", [controller.labelColor stringValue]);
  EXPECT_EQUAL_OBJECTS(@"StartNumber:", [controller.labelStartNumber stringValue]);
}

OBJC_TEST(Titles, OfCheckBoxAndButtonAreLocalizedWithoutAColon) {
  TestPanel panel({.strings = "\"EnableFunction\" = \"Use it\"; \"RestoreDefaults\" = \"Reset\";"});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS(@"Use it", [controller.functionValid title]);
  EXPECT_EQUAL_OBJECTS(@"Reset", [controller.defaultButton title]);
}

OBJC_TEST(RangeCaption, ReplacesEveryPlaceholder) {
  EXPECT_EQUAL_OBJECTS(@"1 to 999", RangeCaption("[MIN] to [MAX]"));
  EXPECT_EQUAL_OBJECTS(@"999 down to 1 (1..999)",
                       RangeCaption("[MAX] down to [MIN] ([MIN]..[MAX])"));
}

OBJC_TEST(RangeCaption, IsShownAsItStandsWithoutPlaceholders) {
  EXPECT_EQUAL_OBJECTS(@"any number [MINIMUM", RangeCaption("any number [MINIMUM"));
  EXPECT_EQUAL_OBJECTS(@"[min] to [max]", RangeCaption("[min] to [max]"));
}

OBJC_TEST(RangeCaption, IsTheKeyWithoutATranslation) {
  TestPanel panel;
  EXPECT_EQUAL_OBJECTS(@"IntegerValueRangeFormat",
                       [panel.Load().labelStartNumberRange stringValue]);
}

OBJC_TEST(RangeCaption, GetsTheMinimumForBothWhenThePlaceholdersAreEqual) {
  EXPECT_EQUAL_OBJECTS(@"1 to 1", RangeCaption("# to #", @"#", @"#"));
}

OBJC_TEST(RangeCaption, GetsTheMinimumBeforeTheMaximum) {
  // The maximum's placeholder is what the minimum leaves behind.
  EXPECT_EQUAL_OBJECTS(@"999 to 999", RangeCaption("[MIN] to 1", @"[MIN]", @"1"));
}

OBJC_TEST(RangeCaption, HasPlainDigits) {
  EXPECT_EQUAL_OBJECTS(@"-5 to 1000000",
                       RangeCaption("[MIN] to [MAX]", @"[MIN]", @"[MAX]", @-5, @1000000));
}

OBJC_TEST(RangeCaption, CannotBeMadeWithoutAPlaceholderOrABound) {
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                       RaisedWithoutEntry(@"Wording", @"MinLabelForValueRange"));
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                       RaisedWithoutEntry(@"Wording", @"MaxLabelForValueRange"));
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                       RaisedWithoutEntry(@"DefaultValue", @"StartNumberMin"));
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                       RaisedWithoutEntry(@"DefaultValue", @"StartNumberMax"));
}

OBJC_TEST(Menus, HaveLocalizedTitlesAndRawValuesInListOrder) {
  TestPanel panel({.strings = "\"Size_Small\" = \"S\"; \"Size_Medium\" = \"M\"; \"Size_Large\" = "
                              "\"L\"; \"Density_Dark\" = \"Strong\"; \"Color_Red\" = \"Rouge\";"});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS((@[ @"S", @"M", @"L" ]), [controller.popUpSize itemTitles]);
  EXPECT_EQUAL_OBJECTS((@[ @"Small", @"Medium", @"Large" ]), RawItems(controller.popUpSize));
  EXPECT_EQUAL_OBJECTS((@[ @"Density_Light", @"Density_Medium", @"Strong" ]),
                       [controller.popUpDensity itemTitles]);
  EXPECT_EQUAL_OBJECTS((@[ @"Light", @"Medium", @"Dark" ]), RawItems(controller.popUpDensity));
  EXPECT_EQUAL_OBJECTS((@[
                         @"Color_Black", @"Rouge", @"Color_Green", @"Color_Blue", @"Color_Cyan",
                         @"Color_Magenta", @"Color_Yellow"
                       ]),
                       [controller.popUpColor itemTitles]);
  EXPECT_EQUAL_OBJECTS((@[ @"Black", @"Red", @"Green", @"Blue", @"Cyan", @"Magenta", @"Yellow" ]),
                       RawItems(controller.popUpColor));
}

OBJC_TEST(Menus, TakeThePrefixOfTheSettingInfo) {
  TestPanel panel({.setting_info = SettingInfoWith(@"Wording", @"PrefixForDensity", @"%@")});
  EXPECT_EQUAL_OBJECTS((@[ @"%@Light", @"%@Medium", @"%@Dark" ]),
                       [panel.Load().popUpDensity itemTitles]);
}

OBJC_TEST(Menus, CarryTheListsOwnEntries) {
  TestPanel panel;
  NSPopUpButton *popUp = panel.Load().popUpSize;
  for (NSUInteger i = 0; i < 3; ++i) {
    EXPECT_EQ([[panel.info() popUpItemsForSize] objectAtIndex:i],
              [[popUp itemAtIndex:static_cast<NSInteger>(i)] representedObject]);
  }
}

OBJC_TEST(Menus, LoseTheItemsThatTheyHad) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  for (NSPopUpButton *popUp in PopUps(controller)) [popUp addItemWithTitle:@"left over"];
  [controller BNVCInitializePopUp];
  EXPECT_EQ(3, [controller.popUpSize numberOfItems]);
  EXPECT_EQ(3, [controller.popUpDensity numberOfItems]);
  EXPECT_EQ(7, [controller.popUpColor numberOfItems]);
}

OBJC_TEST(Menus, AreEmptyForAnEmptyList) {
  TestPanel panel({ .setting_info = SettingInfoWith(@"PopUpItem", @"Size", @[]) });
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQ(0, [controller.popUpSize numberOfItems]);
  EXPECT_EQ(3, [controller.popUpDensity numberOfItems]);
}

OBJC_TEST(Menus, LoseARawValueWhereTwoTitlesAreEqual) {
  NSArray *items = @[ @"Small", @"Large", @"Small" ];
  TestPanel panel({.setting_info = SettingInfoWith(@"PopUpItem", @"Size", items)});
  NSPopUpButton *popUp = panel.Load().popUpSize;
  EXPECT_EQUAL_OBJECTS((@[ @"Size_Large", @"Size_Small" ]), [popUp itemTitles]);
  EXPECT_EQUAL_OBJECTS(@"Large", [[popUp itemAtIndex:0] representedObject]);
  EXPECT_EQUAL_OBJECTS(nil, [[popUp itemAtIndex:1] representedObject]);
}

OBJC_TEST(Menus, OfferBlackAloneWithoutAColorDevice) {
  for (const char *lines : {kMonoDevice, ""}) {
    TestPanel panel({.ppd_lines = lines});
    NSPopUpButton *popUp = panel.Load().popUpColor;
    EXPECT_EQUAL_OBJECTS((@[ @"Color_Black" ]), [popUp itemTitles]);
    EXPECT_EQUAL_OBJECTS((@[ @"Black" ]), RawItems(popUp));
  }
}

OBJC_TEST(Menus, CannotBeFilledWithoutAnItemList) {
  for (NSString *entry in @[ @"Size", @"Density", @"Color" ]) {
    EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException, RaisedWithoutEntry(@"PopUpItem", entry));
  }
}

OBJC_TEST(Menus, CannotBeFilledWithoutAPrefix) {
  for (NSString *entry in @[ @"PrefixForSize", @"PrefixForDensity", @"PrefixForColor" ]) {
    TestPanel panel;
    NSDictionary *incomplete = SettingInfoWith(@"Wording", entry, nil);
    // Tickets need the prefixes as well, so the controller is made first.
    TestBundle bundle(incomplete);
    velmoraBNCommonInfoRV2 *info =
        [[[velmoraBNCommonInfoRV2 alloc] initWithCallback:[panel.host() callback]
                                                   bundle:bundle.get()] autorelease];
    [panel.controller() setValue:info forKey:@"_commonInfo"];
    EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException, NameOfRaised([&] { panel.Load(); }))
        << [entry UTF8String];
  }
}

OBJC_TEST(TicketTargets, AreTheSettingsControls) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  velmoraBNPrintTicketManagerRV2 *tickets = controller.ticket;
  EXPECT_EQUAL_OBJECTS((@[ controller.functionValid ]), tickets.ticketValid.targetInstances);
  EXPECT_EQUAL_OBJECTS((@[ controller.popUpSize ]), tickets.ticketSize.targetInstances);
  EXPECT_EQUAL_OBJECTS((@[ controller.popUpDensity ]), tickets.ticketDensity.targetInstances);
  EXPECT_EQUAL_OBJECTS((@[ controller.popUpColor ]), tickets.ticketColor.targetInstances);
}

OBJC_TEST(TicketTargets, OfTheStartNumberHaveTheTextBoxFirst) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS((@[ controller.textBoxStartNumber, controller.stepperStartNumber ]),
                       controller.ticket.ticketStartNumber.targetInstances);
}

OBJC_TEST(TicketTargets, AreAllRegisteredOnceBeforeTheTitleIsGiven) {
  TestPanel panel({.strings = "\"EnableFunction\" = \"Use it\";"});
  RecordTicketManager(panel.controller());
  panel.Load();
  ASSERT_EQ(6u, Events().size());
  EXPECT_EQ("title Use it", Events().back());
}

OBJC_TEST(StartNumberControls, BothHaveTheIdentifier) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS(@"StartNumber", [controller.textBoxStartNumber identifier]);
  EXPECT_EQUAL_OBJECTS(@"StartNumber", [controller.stepperStartNumber identifier]);
}

OBJC_TEST(StartNumberControls, HaveTheRangeOfTheSettingInfo) {
  NSMutableDictionary *info = SettingInfoWith(@"DefaultValue", @"StartNumberMin", @-5);
  [[info objectForKey:@"DefaultValue"] setObject:@77.9 forKey:@"StartNumberMax"];
  TestPanel panel({.setting_info = info});
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS(@-5, controller.textBoxStartNumber.min);
  EXPECT_EQUAL_OBJECTS(@77.9, controller.textBoxStartNumber.max);
  EXPECT_EQ(-5.0, [controller.stepperStartNumber minValue]);
  EXPECT_EQ(77.0, [controller.stepperStartNumber maxValue]);
}

OBJC_TEST(StartNumberControls, AreShippedWithTheRangeFrom1To999) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  EXPECT_EQUAL_OBJECTS(@1, controller.textBoxStartNumber.min);
  EXPECT_EQUAL_OBJECTS(@999, controller.textBoxStartNumber.max);
  EXPECT_EQ(1.0, [controller.stepperStartNumber minValue]);
  EXPECT_EQ(999.0, [controller.stepperStartNumber maxValue]);
}

OBJC_TEST(Subscription, IsForTextChangesOfTheTextBox) {
  TestPanel panel;
  RecordingNotifications recording(panel.controller());
  panel.Load();
  EXPECT_EQ((std::vector<std::string>{"subscribe controlTextDidChange: to "
                                      "NSControlTextDidChangeNotification of velmoraBNTextBoxRV2"}),
            Events());
}
