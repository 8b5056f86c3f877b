// The tickets that a manager makes.

#import "tickets/velmoraBNPrintTicketManagerRV2.h"

#import "tests/tickets/ManagerJob.h"

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
