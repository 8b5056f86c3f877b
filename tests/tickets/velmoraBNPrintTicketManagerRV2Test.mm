#import "tickets/velmoraBNPrintTicketManagerRV2.h"

#import "tests/tickets/TicketTest.h"

/// Tells what it is asked for.
@interface AskedCommonInfo : velmoraBNCommonInfoRV2 {
 @public
  Strings asked;
}
@end

@implementation AskedCommonInfo
#define RECORDED(type, operation) \
  -(type)operation {              \
    asked.push_back(#operation);  \
    return [super operation];     \
  }
RECORDED(id, defaultValid)
RECORDED(id, defaultSize)
RECORDED(id, defaultDensity)
RECORDED(id, defaultColor)
RECORDED(id, defaultStartNumber)
RECORDED(id, startNumberMin)
RECORDED(id, startNumberMax)
RECORDED(id, popUpItemsForSize)
RECORDED(id, popUpItemsForDensity)
RECORDED(id, popUpItemsForColor)
RECORDED(id, panelKindID)
RECORDED(id, ticketKeyValid)
RECORDED(id, ticketKeySize)
RECORDED(id, ticketKeyDensity)
RECORDED(id, ticketKeyColor)
RECORDED(id, ticketKeyStartNumber)
RECORDED(id, minLabelForIntegerValueRange)
RECORDED(id, maxLabelForIntegerValueRange)
RECORDED(id, prefixForLocalizeSize)
RECORDED(id, prefixForLocalizeDensity)
RECORDED(id, prefixForLocalizeColor)
RECORDED(BOOL, isReady)
@end

namespace {

using Manager = velmoraBNPrintTicketManagerRV2;

// Setting info with short keys and prefixes, and defaults that differ from each other.
NSMutableDictionary *Info() {
  NSMutableDictionary *info = ShippedSettingInfo();
  NSDictionary *keys =
      @{@"Valid" : @"V", @"Size" : @"S", @"Density" : @"D", @"Color" : @"C", @"StartNumber" : @"N"};
  NSDictionary *defaults = @{
    @"Valid" : @"Off",
    @"Size" : @"Large",
    @"Density" : @"Dark",
    @"Color" : @"Red",
    @"StartNumber" : @"5"
  };
  [[info objectForKey:@"TicketKey"] addEntriesFromDictionary:keys];
  [[info objectForKey:@"DefaultValue"] addEntriesFromDictionary:defaults];
  return info;
}

struct ManagerJob : Job {
  explicit ManagerJob(const std::string &ppd_lines = kColorDevice, id setting_info = Info())
      : Job(ppd_lines, setting_info,
            "\"Color_Red\" = \"Rouge\"; \"Size_Small\" = \"Petite\"; \"Size_Large\" = "
            "\"Grande\";") {}
};

NSDictionary *DefaultSettings() {
  return @{@"V" : @"Off", @"S" : @"Large", @"D" : @"Dark", @"C" : @"Red", @"N" : @"5"};
}

Manager *Make(velmoraBNCommonInfoRV2 *info) {
  return [[[Manager alloc] initWithCommonInfo:info] autorelease];
}

Manager *Made(const Job &job) {
  Manager *manager = Make(job.info());
  interposed::Clear();
  return manager;
}

// The controls of a panel, without the panel.
struct Controls {
  NSButton *check_box = CheckBox();
  NSPopUpButton *size, *density, *color;
  NSTextField *box = TextBox();
  NSStepper *stepper = Stepper();

  Controls(const Job &job, Manager *manager)
      : size(PopUp(job, @"Size_", @[ @"Small", @"Large" ])),
        density(PopUp(job, @"Density_", @[ @"Light", @"Dark" ])),
        color(PopUp(job, @"Color_", @[ @"Black", @"Red" ])) {
    [manager registerTargetInstances:@[ check_box ] ticketName:@"Valid"];
    [manager registerTargetInstances:@[ size ] ticketName:@"Size"];
    [manager registerTargetInstances:@[ density ] ticketName:@"Density"];
    [manager registerTargetInstances:@[ color ] ticketName:@"Color"];
    [manager registerTargetInstances:@[ box, stepper ] ticketName:@"StartNumber"];
  }

  // What is shown, by ticket name; the start number's two controls separated by a blank.
  NSDictionary *Shown() const {
    NSString *numbers =
        [NSString stringWithFormat:@"%@ %@", [box stringValue], [stepper stringValue]];
    return @{
      @"Valid" : [check_box state] == NSControlStateValueOn ? @"On" : @"Off",
      @"Size" : [[size selectedItem] representedObject],
      @"Density" : [[density selectedItem] representedObject],
      @"Color" : [[color selectedItem] representedObject],
      @"StartNumber" : numbers
    };
  }
};

// A recording target for each ticket, named after it.
void RegisterRecordingTargets(Manager *manager, Strings *record) {
  for (NSString *name in @[ @"Color", @"StartNumber", @"Valid", @"Density", @"Size" ]) {
    RecordingTarget *target = [RecordingTarget targetNamed:[name UTF8String] record:record];
    target->shownText = name;
    [manager registerTargetInstances:@[ target ] ticketName:name];
  }
}

// How many managers and tickets the body leaves behind.
template <typename Body>
long TicketsLeft(Body body) {
  return InstancesLeft({[velmoraBNPrintTicketValidRV2 class],
                        [velmoraBNPrintTicketPopUpRV2 class],
                        [velmoraBNPrintTicketNumberRV2 class],
                        [Manager class]},
                       body);
}

void ExpectRaisesWithout(NSString *section, NSString *entry) {
  SCOPED_TRACE([[section stringByAppendingString:entry] UTF8String]);
  NSMutableDictionary *info = Info();
  [[info objectForKey:section] removeObjectForKey:entry];
  ManagerJob job(kColorDevice, info);
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                       NameOfRaisedInTheMaking([&] { Make(job.info()); }));
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
}

}  // namespace

OBJC_TEST(TicketManagerConstants, NameTheTickets) {
  EXPECT_EQUAL_OBJECTS(@"Valid", BNPTMNameValid);
  EXPECT_EQUAL_OBJECTS(@"Size", BNPTMNameSize);
  EXPECT_EQUAL_OBJECTS(@"Density", BNPTMNameDensity);
  EXPECT_EQUAL_OBJECTS(@"Color", BNPTMNameColor);
  EXPECT_EQUAL_OBJECTS(@"StartNumber", BNPTMNameStartNumber);
}

OBJC_TEST(TicketManagerConstants, NameWhatATicketIsMadeOf) {
  EXPECT_EQUAL_OBJECTS(@"InstancePointer", BNPTMKeyInstancePointer);
  EXPECT_EQUAL_OBJECTS(@"Class", BNPTMKeyClass);
  EXPECT_EQUAL_OBJECTS(@"DefaultValue", BNPTMKeyDefaultValue);
  EXPECT_EQUAL_OBJECTS(@"TicketKey", BNPTMKeyTicketKey);
  EXPECT_EQUAL_OBJECTS(@"Prefix", BNPTMKeyPrefix);
}

OBJC_TEST(TicketManagerClass, HasAFieldForEachTicketAndNoSetters) {
  EXPECT_TRUE([Manager superclass] == [NSObject class]);
  EXPECT_EQ((Strings{"_ticketValid velmoraBNPrintTicketValidRV2",
                     "_ticketSize velmoraBNPrintTicketPopUpRV2",
                     "_ticketDensity velmoraBNPrintTicketPopUpRV2",
                     "_ticketColor velmoraBNPrintTicketPopUpRV2",
                     "_ticketStartNumber velmoraBNPrintTicketNumberRV2"}),
            FieldsOf([Manager class]));
  EXPECT_FALSE(HasSetterOf(
      [Manager class],
      @[ @"ticketValid", @"ticketSize", @"ticketDensity", @"ticketColor", @"ticketStartNumber" ]));
}

OBJC_TEST(TicketManagerClass, ReleasesTheTicketsInTheirOrder) {
  EXPECT_EQ((Strings{"_ticketValid", "_ticketSize", "_ticketDensity", "_ticketColor",
                     "_ticketStartNumber"}),
            FieldsReleasedAtTeardown([Manager class]));
}

OBJC_TEST(TicketManagerCreation, StoresTheFiveDefaultsInTicketOrder) {
  ManagerJob job;
  EXPECT_TRUE(Make(job.info()) != nil);
  EXPECT_EQUAL_OBJECTS(DefaultSettings(), [job.host() allSettings]);
  EXPECT_EQ((Strings{"ppd ColorDevice", "get V", "set V=Off", "get S", "set S=Large", "get D",
                     "set D=Dark", "get C", "set C=Red", "get N", "set N=5"}),
            interposed::Calls());
}

OBJC_TEST(TicketManagerCreation, LeavesValuesOfTheJobAlone) {
  ManagerJob job;
  job.Store(@"S", @"Small");
  job.Store(@"N", @"77");
  EXPECT_TRUE(Make(job.info()) != nil);
  EXPECT_EQ((Strings{"set V=Off", "set D=Dark", "set C=Red"}), interposed::Calls("set"));
}

OBJC_TEST(TicketManagerCreation, StoresBlackOnAPrinterWithoutColor) {
  ManagerJob job(kMonoDevice);
  EXPECT_TRUE(Make(job.info()) != nil);
  EXPECT_EQUAL_OBJECTS(@"Black", job[@"C"]);
}

OBJC_TEST(TicketManagerCreation, MakesEachTicketOfItsClassAndValues) {
  ManagerJob job;
  Manager *manager = Make(job.info());
  const struct {
    velmoraBNPrintTicketRV2 *ticket;
    Class cls;
    NSString *key, *default_value, *prefix;
  } expected[] = {
      {manager.ticketValid, [velmoraBNPrintTicketValidRV2 class], @"V", @"Off", nil},
      {manager.ticketSize, [velmoraBNPrintTicketPopUpRV2 class], @"S", @"Large", @"Size_"},
      {manager.ticketDensity, [velmoraBNPrintTicketPopUpRV2 class], @"D", @"Dark", @"Density_"},
      {manager.ticketColor, [velmoraBNPrintTicketPopUpRV2 class], @"C", @"Red", @"Color_"},
      {manager.ticketStartNumber, [velmoraBNPrintTicketNumberRV2 class], @"N", @"5", nil},
  };
  for (const auto &row : expected) {
    SCOPED_TRACE([row.key UTF8String]);
    EXPECT_TRUE([row.ticket class] == row.cls);
    EXPECT_EQUAL_OBJECTS(row.key, row.ticket.key);
    EXPECT_EQUAL_OBJECTS(row.default_value, row.ticket.defaultValue);
    EXPECT_TRUE(row.ticket.commonInfo == job.info());
    EXPECT_EQ(0u, [row.ticket.targetInstances count]);
    if (row.prefix != nil) {
      EXPECT_EQUAL_OBJECTS(row.prefix, [(velmoraBNPrintTicketPopUpRV2 *)row.ticket prefix]);
    }
  }
}

OBJC_TEST(TicketManagerCreation, AsksForAllValuesInOrderBeforeItMakesTheFirstTicket) {
  ManagerJob job;
  AskedCommonInfo *info = job.InfoOf<AskedCommonInfo>();
  Make(info);
  EXPECT_EQ((Strings{"defaultValid", "ticketKeyValid", "defaultSize", "ticketKeySize",
                     "prefixForLocalizeSize", "defaultDensity", "ticketKeyDensity",
                     "prefixForLocalizeDensity", "defaultColor", "ticketKeyColor",
                     "prefixForLocalizeColor", "defaultStartNumber", "ticketKeyStartNumber",
                     "isReady", "isReady", "isReady", "isReady", "isReady"}),
            info->asked);
}

OBJC_TEST(TicketManagerCreation, TakesTheDefaultStartNumberAsNumberOrString) {
  for (id number in @[ @42, @"42" ]) {
    NSMutableDictionary *setting_info = Info();
    [[setting_info objectForKey:@"DefaultValue"] setObject:number forKey:@"StartNumber"];
    ManagerJob job(kColorDevice, setting_info);
    Manager *manager = Make(job.info());
    EXPECT_EQUAL_OBJECTS(@"42", manager.ticketStartNumber.defaultValue);
    EXPECT_TRUE([job[@"N"] isKindOfClass:[NSString class]]);
    EXPECT_EQUAL_OBJECTS(@"42", job[@"N"]);
  }
}

OBJC_TEST(TicketManagerCreation, LeavesTheCommonInfoToTheTickets) {
  ManagerJob job;
  Manager *manager = nil;
  EXPECT_EQ(5, ReferencesLeft(job.info(), [&] { manager = [Make(job.info()) retain]; }));
  EXPECT_EQ(-5, ReferencesLeft(job.info(), [&] { [manager release]; }));
}

OBJC_TEST(TicketManagerCreation, GivesEverythingBack) {
  ManagerJob job;
  EXPECT_EQ(0, TicketsLeft([&] { Made(job); }));
}

OBJC_TEST(TicketManagerCreation, FailsWithoutCommonInfo) {
  Manager *manager = (Manager *)@"";
  EXPECT_EQ(0, InstancesLeft([Manager class],
                             [&] { manager = [[Manager alloc] initWithCommonInfo:nil]; }));
  EXPECT_TRUE(manager == nil);
}

OBJC_TEST(TicketManagerCreation, StopsAtTheFirstTicketThatCannotBeMade) {
  const Strings seeding[] = {{"get V", "set V=Off"},
                             {"get S", "set S=Large"},
                             {"get D", "set D=Dark"},
                             {"get C", "set C=Red"},
                             {"get N", "set N=5"}};
  Strings expected = {"ppd ColorDevice"};
  for (int made = 0; made < 5; ++made) {
    SCOPED_TRACE(made);
    expected.insert(expected.end(), seeding[made].begin(), seeding[made].end());
    ManagerJob job;
    ReluctantCommonInfo *info = job.InfoOf<ReluctantCommonInfo>();
    info->readyTimes = made;
    EXPECT_EQ(0, TicketsLeft([&] {
                EXPECT_EQ(0, ReferencesLeft(info, [&] { EXPECT_TRUE(Make(info) == nil); }));
              }));
    EXPECT_EQ(made + 1, info->asked);
    EXPECT_EQ(expected, interposed::Calls());
  }
}

OBJC_TEST(TicketManagerCreation, RaisesWhenADefaultIsAbsent) {
  for (NSString *entry in @[ @"Valid", @"Size", @"Density", @"Color", @"StartNumber" ]) {
    ExpectRaisesWithout(@"DefaultValue", entry);
  }
}

OBJC_TEST(TicketManagerCreation, RaisesWhenAKeyIsAbsent) {
  for (NSString *entry in @[ @"Valid", @"Size", @"Density", @"Color", @"StartNumber" ]) {
    ExpectRaisesWithout(@"TicketKey", entry);
  }
}

OBJC_TEST(TicketManagerCreation, RaisesWhenAPrefixIsAbsent) {
  for (NSString *entry in @[ @"PrefixForSize", @"PrefixForDensity", @"PrefixForColor" ]) {
    ExpectRaisesWithout(@"Wording", entry);
  }
}

OBJC_TEST(TicketManagerCreation, RaisesWhenASectionIsOfAnotherType) {
  for (NSString *section in @[ @"DefaultValue", @"TicketKey", @"Wording" ]) {
    for (id value in @[ @"text", @[ @"item" ], @[] ]) {
      NSMutableDictionary *info = Info();
      [info setObject:value forKey:section];
      ManagerJob job(kColorDevice, info);
      EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException,
                           NameOfRaisedInTheMaking([&] { Make(job.info()); }));
    }
  }
}

OBJC_TEST(TicketManagerCreation, NeedsNoColorDefaultOnAPrinterWithoutColor) {
  NSMutableDictionary *info = Info();
  [[info objectForKey:@"DefaultValue"] removeObjectForKey:@"Color"];
  ManagerJob job(kMonoDevice, info);
  EXPECT_TRUE(Make(job.info()) != nil);
}

OBJC_TEST(TicketManagerLists, HoldTheTicketsInOrderAnewEachTime) {
  ManagerJob job;
  Manager *manager = Made(job);
  NSArray *all = [manager BNPTMAllTicketsArray];
  EXPECT_EQUAL_OBJECTS((@[
                         manager.ticketValid, manager.ticketSize, manager.ticketDensity,
                         manager.ticketColor, manager.ticketStartNumber
                       ]),
                       all);
  EXPECT_TRUE(all != [manager BNPTMAllTicketsArray]);
}

OBJC_TEST(TicketManagerLists, NameTheTicketsAnewEachTime) {
  ManagerJob job;
  Manager *manager = Made(job);
  NSDictionary *all = [manager BNPTMAllTicketsDictionary];
  EXPECT_EQUAL_OBJECTS((@{
                         @"Valid" : manager.ticketValid,
                         @"Size" : manager.ticketSize,
                         @"Density" : manager.ticketDensity,
                         @"Color" : manager.ticketColor,
                         @"StartNumber" : manager.ticketStartNumber
                       }),
                       all);
  EXPECT_TRUE(all != [manager BNPTMAllTicketsDictionary]);
}

OBJC_TEST(TicketManagerRegister, ReplacesTheControlsOfTheNamedTicketOnly) {
  ManagerJob job;
  for (NSString *name in [[Made(job) BNPTMAllTicketsDictionary] allKeys]) {
    SCOPED_TRACE([name UTF8String]);
    Manager *manager = Made(job);
    NSArray *targets = @[ TextBox(), Stepper() ];
    [manager registerTargetInstances:@[ TextBox() ] ticketName:name];
    [manager registerTargetInstances:targets ticketName:name];
    NSDictionary *tickets = [manager BNPTMAllTicketsDictionary];
    for (NSString *other in tickets) {
      EXPECT_EQUAL_OBJECTS([other isEqual:name] ? targets : @[],
                           [[tickets objectForKey:other] targetInstances]);
    }
  }
}

OBJC_TEST(TicketManagerRegister, UnderAnUnknownNameDoesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  for (NSString *name in @[ @"startNumber", @"STARTNUMBER", @"StartNumber ", @"Sizes", @"" ]) {
    [manager registerTargetInstances:@[ TextBox() ] ticketName:name];
  }
  for (velmoraBNPrintTicketRV2 *ticket in [manager BNPTMAllTicketsArray]) {
    EXPECT_EQUAL_OBJECTS(@[], ticket.targetInstances);
  }
}

OBJC_TEST(TicketManagerTitle, GoesToTheSwitchAlone) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager setTitleToValid:@"Print numbers"];
  EXPECT_EQ((Strings{"Valid setTitle Print numbers"}), record);
}

OBJC_TEST(TicketManagerRestoreAll, ShowsEveryStoredValueInTicketOrder) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQ((Strings{"Valid setState 0", "Size selectItemWithTitle Grande",
                     "Density selectItemWithTitle Density_Dark", "Color selectItemWithTitle Rouge",
                     "StartNumber setStringValue 5"}),
            record);
  EXPECT_EQ((Strings{"get V", "get S", "get D", "ppd ColorDevice", "get C", "get N"}),
            interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreAll, CorrectsTheColorBeforeItIsRead) {
  ManagerJob job(kMonoDevice);
  Manager *manager = Made(job);
  job.Store(@"C", @"Red");
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQ(
      (Strings{"get V", "get S", "get D", "ppd ColorDevice", "set C=Black", "get C", "get N"}),
      interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreAll, SetsRealControls) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  NSDictionary *stored =
      @{@"V" : @"On", @"S" : @"Small", @"D" : @"Light", @"C" : @"Black", @"N" : @"12"};
  for (NSString *key in stored) job.Store(key, [stored objectForKey:key]);
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQUAL_OBJECTS((@{
                         @"Valid" : @"On",
                         @"Size" : @"Small",
                         @"Density" : @"Light",
                         @"Color" : @"Black",
                         @"StartNumber" : @"12 12"
                       }),
                       controls.Shown());
  EXPECT_EQUAL_OBJECTS(stored, [job.host() allSettings]);
}

OBJC_TEST(TicketManagerRestoreAll, ShowsTheDefaultsWhereNothingCanBeRead) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  job.DropSettings();
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQUAL_OBJECTS((@{
                         @"Valid" : @"Off",
                         @"Size" : @"Large",
                         @"Density" : @"Dark",
                         @"Color" : @"Red",
                         @"StartNumber" : @"5 5"
                       }),
                       controls.Shown());
}

OBJC_TEST(TicketManagerRestoreOne, AnswersTheValueOfSwitchAndStartNumber) {
  ManagerJob job;
  Manager *manager = Made(job);
  EXPECT_EQUAL_OBJECTS(@"Off", [manager restoreTicketFailSafe:@"Valid"]);
  EXPECT_EQUAL_OBJECTS(@"5", [manager restoreTicketFailSafe:@"StartNumber"]);
  EXPECT_EQ((Strings{"get V", "get N"}), interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreOne, AnswersTheUnlocalizedKeyOfAMenusValue) {
  ManagerJob job;
  Manager *manager = Made(job);
  job.Store(@"S", @"Small");
  EXPECT_EQUAL_OBJECTS(@"Size_Small", [manager restoreTicketFailSafe:@"Size"]);
  EXPECT_EQUAL_OBJECTS(@"Density_Dark", [manager restoreTicketFailSafe:@"Density"]);
  EXPECT_EQUAL_OBJECTS(@"Color_Red", [manager restoreTicketFailSafe:@"Color"]);
}

OBJC_TEST(TicketManagerRestoreOne, ShowsTheValueInThatTicketsControlsOnly) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager restoreTicketFailSafe:@"Color"];
  EXPECT_EQ((Strings{"Color selectItemWithTitle Rouge"}), record);
}

OBJC_TEST(TicketManagerRestoreOne, AnswersNilForAnUnknownName) {
  ManagerJob job;
  Manager *manager = Made(job);
  for (NSString *name in @[ @"color", @"Colour", @"", @"C" ]) {
    EXPECT_EQUAL_OBJECTS(nil, [manager restoreTicketFailSafe:name]);
  }
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerSaveAll, WritesEveryControlsValueInTicketOrder) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  [controls.check_box setState:NSControlStateValueOn];
  [controls.color selectItemAtIndex:1];
  [controls.box setStringValue:@"12"];
  [controls.stepper setStringValue:@"34"];
  [manager saveAllTickets];
  EXPECT_EQ((Strings{"set V=On", "set S=Small", "set D=Light", "set C=Red", "set N=12"}),
            interposed::Calls());
}

OBJC_TEST(TicketManagerSaveAll, WithoutControlsWritesNothing) {
  ManagerJob job;
  [Made(job) saveAllTickets];
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerSaveAll, GoesOnAfterAWriteThatFails) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  interposed::FailWrites(1);
  [manager saveAllTickets];
  EXPECT_EQ(5u, interposed::Calls("set").size());
  EXPECT_EQUAL_OBJECTS(DefaultSettings(), [job.host() allSettings]);
}

OBJC_TEST(TicketManagerRestoreDefaults, ResetsAllButTheSwitchInTicketOrderAndWritesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  [manager restoreDefaultsExceptValid];
  EXPECT_EQ((Strings{"Size selectItemWithTitle Grande", "Density selectItemWithTitle Density_Dark",
                     "Color selectItemWithTitle Rouge", "StartNumber setStringValue 5"}),
            record);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerRestoreDefaults, ResetsRealControlsAndKeepsTheCheckBox) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  [controls.check_box setState:NSControlStateValueOn];
  [manager restoreDefaultsExceptValid];
  EXPECT_EQUAL_OBJECTS((@{
                         @"Valid" : @"On",
                         @"Size" : @"Large",
                         @"Density" : @"Dark",
                         @"Color" : @"Red",
                         @"StartNumber" : @"5 5"
                       }),
                       controls.Shown());
}

OBJC_TEST(TicketManagerVerifyAll, WithoutColorStoresBlackAlone) {
  ManagerJob job(kMonoDevice);
  Manager *manager = Made(job);
  for (NSString *key in @[ @"V", @"S", @"D", @"C", @"N" ]) job.Store(key, @"?");
  [manager verifyAllTickets];
  EXPECT_EQ((Strings{"ppd ColorDevice", "set C=Black"}), interposed::Calls());
}

OBJC_TEST(TicketManagerVerifyAll, WithColorChangesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  job.Store(@"C", @"Infrared");
  [manager verifyAllTickets];
  EXPECT_EQ((Strings{"ppd ColorDevice"}), interposed::Calls());
}

OBJC_TEST(TicketManagerVerifyAll, RunsInTicketOrder) {
  // With one key for all three menus each of them corrects it.
  NSMutableDictionary *info = Info();
  for (NSString *name in @[ @"Size", @"Density", @"Color" ]) {
    [[info objectForKey:@"TicketKey"] setObject:@"menu" forKey:name];
  }
  ManagerJob job(kMonoDevice, info);
  [Made(job) verifyAllTickets];
  EXPECT_EQ((Strings{"set menu=Large", "set menu=Dark", "set menu=Black"}),
            interposed::Calls("set"));
}

OBJC_TEST(TicketManagerChange, ShowsTheSendersTextInBothControlsOfTheStartNumber) {
  ManagerJob job;
  Manager *manager = Made(job);
  Controls controls(job, manager);
  [manager changeValue:@25 ticketName:@"StartNumber"];
  EXPECT_EQUAL_OBJECTS(@"25", [controls.box stringValue]);
  EXPECT_EQUAL_OBJECTS(@"25", [controls.stepper stringValue]);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManagerChange, UnderAnyOtherNameDoesNothing) {
  ManagerJob job;
  Manager *manager = Made(job);
  Strings record;
  RegisterRecordingTargets(manager, &record);
  for (NSString *name in
       @[ @"Valid", @"Size", @"Density", @"Color", @"startNumber", @"Number", @"" ]) {
    [manager changeValue:@25 ticketName:name];
  }
  EXPECT_EQ(Strings{}, record);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(TicketManager, LogsNothing) {
  ManagerJob job(kMonoDevice);
  Manager *manager = Make(job.info());
  Controls controls(job, manager);
  [manager restoreAllTicketsFailSafe];
  [manager saveAllTickets];
  [manager verifyAllTickets];
  EXPECT_EQ(Strings{}, interposed::Calls("log"));
  EXPECT_FALSE(interposed::Calls("set").empty());
}
