// Whoever replaces a published operation of the tickets changes what goes through it.

#import "tests/tickets/TicketTest.h"

namespace {

Strings events;

void Register(velmoraBNPrintTicketManagerRV2 *manager, Strings *record) {
  NSDictionary *tickets = [manager BNPTMAllTicketsDictionary];
  for (NSString *name in tickets) {
    RecordingTarget *target = [RecordingTarget targetNamed:[name UTF8String] record:record];
    [[tickets objectForKey:name] registerTargetInstances:@[ target ]];
  }
}

// "NAME" of each, in the order in which they were reached.
Strings Reached(const Strings &record) {
  Strings names;
  for (const std::string &line : record) names.push_back(line.substr(0, line.find(' ')));
  return names;
}

}  // namespace

/// Walks its tickets backwards and leaves one out.
@interface BackwardManager : velmoraBNPrintTicketManagerRV2
@end

@implementation BackwardManager

- (NSArray *)BNPTMAllTicketsArray {
  return @[ self.ticketStartNumber, self.ticketColor, self.ticketSize, self.ticketValid ];
}

- (velmoraBNPrintTicketValidRV2 *)ticketValid {
  events.push_back("ticketValid");
  return [super ticketValid];
}

@end

/// Knows the size by another name.
@interface RenamingManager : velmoraBNPrintTicketManagerRV2
@end

@implementation RenamingManager

- (NSDictionary *)BNPTMAllTicketsDictionary {
  return @{@"Height" : self.ticketSize};
}

@end

/// Has print settings of its own.
@interface StoringTicket : velmoraBNPrintTicketNumberRV2
@end

@implementation StoringTicket

- (NSString *)BNPTPrintSettings:(NSString *)key {
  events.push_back(std::string("read ") + [key UTF8String]);
  return @"77";
}

- (BOOL)BNPTSetPrintSettings:(NSString *)key value:(NSString *)value {
  events.push_back(std::string("write ") + [key UTF8String] + "=" + [value UTF8String]);
  return YES;
}

@end

/// Asks for its default, and counts.
@interface CountingTicket : velmoraBNPrintTicketRV2
@end

@implementation CountingTicket

- (NSString *)defaultValue {
  events.push_back("default");
  return [super defaultValue];
}

@end

@interface UnverifiedPopUpTicket : velmoraBNPrintTicketPopUpRV2
@end

@implementation UnverifiedPopUpTicket

- (void)verifyTicket {
  events.push_back("verify");
}

@end

/// Common information of another job's print settings.
@interface StrayCommonInfo : velmoraBNCommonInfoRV2 {
 @public
  PMPrintSettings other;
}
@end

@implementation StrayCommonInfo

- (PMPrintSettings)currentPrintSettings {
  return other;
}

@end

OBJC_TEST(TicketManagerOverrides, TheBulkOperationsWalkTheListOfAllTickets) {
  Job job(kColorDevice);
  BackwardManager *manager = [[[BackwardManager alloc] initWithCommonInfo:job.info()] autorelease];
  Strings record;
  Register(manager, &record);

  const Strings backwards{"StartNumber", "Color", "Size", "Valid"};
  [manager restoreAllTicketsFailSafe];
  EXPECT_EQ(backwards, Reached(record));

  record.clear();
  [manager restoreDefaultsExceptValid];
  EXPECT_EQ((Strings{"StartNumber", "Color", "Size"}), Reached(record));

  interposed::Clear();
  [manager saveAllTickets];
  EXPECT_EQ(4u, interposed::Calls("set").size());
  EXPECT_TRUE(interposed::Calls("set").front().starts_with("set VQStartNumber="));
  EXPECT_TRUE(interposed::Calls("set").back().starts_with("set VQBackgroundNumbering="));
}

OBJC_TEST(TicketManagerOverrides, VerificationWalksTheListOfAllTickets) {
  // With one key for two menus each of them corrects it; the one that is left out would be first.
  NSMutableDictionary *info = ShippedSettingInfo();
  for (NSString *name in @[ @"Size", @"Density", @"Color" ]) {
    [[info objectForKey:@"TicketKey"] setObject:@"menu" forKey:name];
  }
  Job job(kMonoDevice, info);
  BackwardManager *manager = [[[BackwardManager alloc] initWithCommonInfo:job.info()] autorelease];
  interposed::Clear();
  [manager verifyAllTickets];
  EXPECT_EQ((Strings{"set menu=Black", "set menu=Medium"}), interposed::Calls("set"));
}

OBJC_TEST(TicketManagerOverrides, TheSwitchIsAskedForAnewAtEachTicketThatIsReset) {
  Job job(kColorDevice);
  BackwardManager *manager = [[[BackwardManager alloc] initWithCommonInfo:job.info()] autorelease];
  events.clear();
  [manager restoreDefaultsExceptValid];
  // Once for the list itself, and once for each of its four tickets.
  EXPECT_EQ(Strings(5, "ticketValid"), events);
}

OBJC_TEST(TicketManagerOverrides, NamesAreLookedUpInTheDictionaryOfAllTickets) {
  Job job(kColorDevice);
  RenamingManager *manager = [[[RenamingManager alloc] initWithCommonInfo:job.info()] autorelease];
  NSArray *targets = @[ TextBox() ];
  [manager registerTargetInstances:@[ TextBox() ] ticketName:@"Size"];
  EXPECT_EQUAL_OBJECTS(@[], manager.ticketSize.targetInstances);
  [manager registerTargetInstances:targets ticketName:@"Height"];
  EXPECT_EQUAL_OBJECTS(targets, manager.ticketSize.targetInstances);

  Strings record;
  RecordingTarget *target = [RecordingTarget targetNamed:"Height" record:&record];
  [manager registerTargetInstances:@[ target ] ticketName:@"Height"];
  EXPECT_EQUAL_OBJECTS(nil, [manager restoreTicketFailSafe:@"Size"]);
  EXPECT_EQUAL_OBJECTS(@"Size_Medium", [manager restoreTicketFailSafe:@"Height"]);
  EXPECT_EQ((Strings{"Height selectItemWithTitle Size_Medium"}), record);
}

OBJC_TEST(PrintTicketOverrides, EverythingIsReadAndWrittenByTheTwoOperations) {
  Job job(kColorDevice);
  interposed::Clear();
  events.clear();
  StoringTicket *ticket = [[[StoringTicket alloc] initWithDefaultValue:@"5"
                                                             ticketKey:@"N"
                                                            commonInfo:job.info()] autorelease];
  NSTextField *box = TextBox();
  [ticket registerTargetInstances:@[ box ]];
  EXPECT_EQUAL_OBJECTS(@"77", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"77", [box stringValue]);
  [box setStringValue:@"12"];
  [ticket saveTicket];
  EXPECT_EQ((Strings{"read N", "read N", "write N=12"}), events);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketOverrides, ThePrintSettingsAreThoseTheCommonInfoAnswers) {
  Job job(kColorDevice), other(kColorDevice);
  StrayCommonInfo *info = job.InfoOf<StrayCommonInfo>();
  info->other = other.host()->settings;
  velmoraBNPrintTicketRV2 *ticket =
      [[[velmoraBNPrintTicketRV2 alloc] initWithDefaultValue:@"5" ticketKey:@"N"
                                                  commonInfo:info] autorelease];
  EXPECT_EQUAL_OBJECTS(@"5", other[@"N"]);
  EXPECT_EQUAL_OBJECTS(nil, job[@"N"]);
  EXPECT_EQUAL_OBJECTS(@"5", [ticket BNPTPrintSettings:@"N"]);
}

OBJC_TEST(PrintTicketOverrides, TheDefaultIsAskedForOnceHoweverManyTargetsShowIt) {
  Job job(kColorDevice);
  CountingTicket *ticket = [[[CountingTicket alloc] initWithDefaultValue:@"5"
                                                               ticketKey:@"N"
                                                              commonInfo:job.info()] autorelease];
  [ticket registerTargetInstances:@[ TextBox(), TextBox(), Stepper() ]];
  events.clear();
  [ticket restoreDefaults];
  EXPECT_EQ((Strings{"default"}), events);
}

OBJC_TEST(PrintTicketOverrides, AMenuVerifiesByVerifyTicketBeforeItIsShown) {
  Job job(kMonoDevice);
  UnverifiedPopUpTicket *ticket =
      [[[UnverifiedPopUpTicket alloc] initWithDefaultValue:@"Black"
                                                 ticketKey:[job.info() ticketKeyColor]
                                                commonInfo:job.info()
                                                    prefix:@"Color_"] autorelease];
  job.Store([job.info() ticketKeyColor], @"Red");
  events.clear();
  EXPECT_EQUAL_OBJECTS(@"Color_Red", [ticket restoreTicketFailSafe]);
  EXPECT_EQ((Strings{"verify"}), events);
}
