#import "tickets/velmoraBNPrintTicketRV2.h"

#import "tests/tickets/TicketTest.h"

namespace {

using Ticket = velmoraBNPrintTicketRV2;

Ticket *Make(const Job &job, NSString *default_value = @"default", NSString *key = @"K") {
  return [[[Ticket alloc] initWithDefaultValue:default_value ticketKey:key
                                    commonInfo:job.info()] autorelease];
}

// The same, without a trace of the creation among the recorded calls.
Ticket *Made(const Job &job) {
  Ticket *ticket = Make(job);
  interposed::Clear();
  return ticket;
}

void ExpectRefused(Job &job, NSString *default_value, NSString *key, velmoraBNCommonInfoRV2 *info) {
  Ticket *ticket = (Ticket *)info;
  EXPECT_EQ(0, InstancesLeft([Ticket class], [&] {
              ticket = [[Ticket alloc] initWithDefaultValue:default_value
                                                  ticketKey:key
                                                 commonInfo:info];
            }));
  EXPECT_TRUE(ticket == nil);
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

}  // namespace

OBJC_TEST(PrintTicketClass, HasFourFieldsWithoutSetters) {
  EXPECT_TRUE([Ticket superclass] == [NSObject class]);
  EXPECT_EQ((Strings{"_key NSString", "_defaultValue NSString",
                     "_commonInfo velmoraBNCommonInfoRV2", "_targetInstances NSMutableArray"}),
            FieldsOf([Ticket class]));
  EXPECT_FALSE(
      HasSetterOf([Ticket class], @[ @"key", @"defaultValue", @"commonInfo", @"targetInstances" ]));
}

OBJC_TEST(PrintTicketClass, ReleasesDefaultKeyCommonInfoAndTargetsInThisOrder) {
  EXPECT_EQ((Strings{"_defaultValue", "_key", "_commonInfo", "_targetInstances"}),
            FieldsReleasedAtTeardown([Ticket class]));
}

OBJC_TEST(PrintTicketCreation, StoresTheDefaultWhereTheJobHasNoValue) {
  Job job(kColorDevice);
  EXPECT_TRUE(Make(job) != nil);
  EXPECT_EQUAL_OBJECTS(@{@"K" : @"default"}, [job.host() allSettings]);
  EXPECT_EQ((Strings{"get K", "set K=default"}), interposed::Calls());
}

OBJC_TEST(PrintTicketCreation, LeavesAValueOfTheJobAlone) {
  Job job(kColorDevice);
  job.Store(@"K", @"chosen");
  EXPECT_TRUE(Make(job) != nil);
  EXPECT_EQUAL_OBJECTS(@{@"K" : @"chosen"}, [job.host() allSettings]);
  EXPECT_EQ((Strings{"get K"}), interposed::Calls());
}

OBJC_TEST(PrintTicketCreation, LeavesAnEmptyValueOfTheJobAlone) {
  Job job(kColorDevice);
  job.Store(@"K", @"");
  Make(job);
  EXPECT_EQUAL_OBJECTS(@"", job[@"K"]);
}

OBJC_TEST(PrintTicketCreation, KeepsTheVeryObjectsItIsGiven) {
  Job job(kColorDevice);
  NSMutableString *key = [NSMutableString stringWithString:@"K"];
  NSMutableString *value = [NSMutableString stringWithString:@"default"];
  Ticket *ticket = Make(job, value, key);
  EXPECT_TRUE(ticket.key == key);
  EXPECT_TRUE(ticket.defaultValue == value);
  EXPECT_TRUE(ticket.commonInfo == job.info());
}

OBJC_TEST(PrintTicketCreation, BeginsWithAnEmptyListOfTargets) {
  Job job(kColorDevice);
  EXPECT_EQUAL_OBJECTS(@[], Make(job).targetInstances);
}

OBJC_TEST(PrintTicketCreation, RetainsItsArgumentsOnceAndGivesThemBack) {
  Job job(kColorDevice);
  job.Store(@"K", @"chosen");  // the settings take no reference to the default then
  for (id object in @[
         job.info(), [NSMutableString stringWithString:@"K"],
         [NSMutableString stringWithString:@"default"]
       ]) {
    SCOPED_TRACE([[object description] UTF8String]);
    Ticket *ticket = nil;
    EXPECT_EQ(1, ReferencesLeft(object, [&] {
                ticket = [Make(job, [object isEqual:@"default"] ? object : @"default",
                               [object isEqual:@"K"] ? object : @"K") retain];
              }));
    EXPECT_EQ(-1, ReferencesLeft(object, [&] { [ticket release]; }));
  }
}

OBJC_TEST(PrintTicketCreation, WithoutDefaultFailsAndWritesNothing) {
  Job job(kColorDevice);
  ExpectRefused(job, nil, @"K", job.info());
}

OBJC_TEST(PrintTicketCreation, WithoutKeyFailsAndWritesNothing) {
  Job job(kColorDevice);
  ExpectRefused(job, @"default", nil, job.info());
}

OBJC_TEST(PrintTicketCreation, WithoutCommonInfoFailsAndWritesNothing) {
  Job job(kColorDevice);
  ExpectRefused(job, @"default", @"K", nil);
}

OBJC_TEST(PrintTicketCreation, FailsWhenTheCommonInfoIsNotReadyButTheJobHasItsDefault) {
  Job job(kColorDevice);
  ReluctantCommonInfo *info = job.InfoOf<ReluctantCommonInfo>();
  Ticket *ticket = (Ticket *)info;
  EXPECT_EQ(0, InstancesLeft([Ticket class], [&] {
              EXPECT_EQ(0, ReferencesLeft(info, [&] {
                          ticket = [[Ticket alloc] initWithDefaultValue:@"default"
                                                              ticketKey:@"K"
                                                             commonInfo:info];
                        }));
            }));
  EXPECT_TRUE(ticket == nil);
  EXPECT_EQ(1, info->asked);
  EXPECT_EQUAL_OBJECTS(@{@"K" : @"default"}, [job.host() allSettings]);
}

OBJC_TEST(PrintTicketCreation, DoesNotNeedPrintSettings) {
  Job job(kColorDevice);
  job.DropSettings();
  Ticket *ticket = Make(job);
  EXPECT_TRUE(ticket != nil);
  EXPECT_EQ((Strings{"get K", "set K=default"}), interposed::Calls());
}

OBJC_TEST(PrintTicketCreation, IgnoresAWriteThatFails) {
  Job job(kColorDevice);
  interposed::FailWrites(kPMItemIsLocked);
  EXPECT_TRUE(Make(job) != nil);
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
}

OBJC_TEST(PrintTicketCreation, TakesAReadThatFailsForNoValue) {
  Job job(kColorDevice);
  job.Store(@"K", @"chosen");
  interposed::FailReads(kPMInvalidParameter);
  EXPECT_TRUE(Make(job) != nil);
  EXPECT_EQUAL_OBJECTS(@"default", job[@"K"]);
}

OBJC_TEST(PrintTicketRead, AnswersTheObjectStoredUnderTheKeyItIsAskedFor) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  NSMutableString *stored = [NSMutableString stringWithString:@"stored"];
  job.Store(@"Other", stored);
  NSString *value = nil;
  EXPECT_EQ(0, ReferencesLeft(stored, [&] { value = [ticket BNPTPrintSettings:@"Other"]; }));
  EXPECT_TRUE(value == stored);
  EXPECT_EQ((Strings{"get Other"}), interposed::Calls());
}

OBJC_TEST(PrintTicketRead, DoesNotCheckTheType) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  job.Store(@"Other", @7);
  EXPECT_EQUAL_OBJECTS(@7, (id)[ticket BNPTPrintSettings:@"Other"]);
}

OBJC_TEST(PrintTicketRead, AnswersNilForNoValueFailureOrNoSettings) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  EXPECT_EQUAL_OBJECTS(nil, [ticket BNPTPrintSettings:@"Other"]);
  interposed::FailReads(1);
  EXPECT_EQUAL_OBJECTS(nil, [ticket BNPTPrintSettings:@"K"]);
  interposed::FailReads(0);
  job.DropSettings();
  EXPECT_EQUAL_OBJECTS(nil, [ticket BNPTPrintSettings:@"K"]);
}

OBJC_TEST(PrintTicketWrite, StoresUnlockedUnderTheGivenKeyAndSaysYes) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  EXPECT_TRUE([ticket BNPTSetPrintSettings:@"Other" value:@"one"]);
  EXPECT_TRUE([ticket BNPTSetPrintSettings:@"Other" value:@"two"]);
  EXPECT_EQ((Strings{"set Other=one", "set Other=two"}), interposed::Calls());
  EXPECT_EQUAL_OBJECTS((@{@"K" : @"default", @"Other" : @"two"}), [job.host() allSettings]);
}

OBJC_TEST(PrintTicketWrite, OfNilRemovesTheKey) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  EXPECT_TRUE([ticket BNPTSetPrintSettings:@"K" value:nil]);
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
}

OBJC_TEST(PrintTicketWrite, SaysNoWhenItFails) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  for (OSStatus status : {-9586, 1}) {
    interposed::FailWrites(status);
    EXPECT_FALSE([ticket BNPTSetPrintSettings:@"K" value:@"lost"]);
  }
  interposed::FailWrites(0);
  EXPECT_EQUAL_OBJECTS(@"default", job[@"K"]);
  job.DropSettings();
  EXPECT_FALSE([ticket BNPTSetPrintSettings:@"K" value:@"lost"]);
}

OBJC_TEST(PrintTicketWrite, GoesToTheSettingsOfThisMoment) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  PMPrintSettings before = job.host()->settings;
  PMCreatePrintSettings(&job.host()->settings);
  EXPECT_TRUE([ticket BNPTSetPrintSettings:@"K" value:@"new"]);
  EXPECT_EQUAL_OBJECTS(@"new", [ticket BNPTPrintSettings:@"K"]);
  CFTypeRef value = nullptr;
  EXPECT_EQ(0, PMPrintSettingsGetValue(before, (CFStringRef) @"K", &value));
  EXPECT_EQUAL_OBJECTS(@"default", (id)value);
  PMRelease(before);
}

OBJC_TEST(PrintTicketTargets, AreReplacedInTheSameLiveList) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  NSMutableArray *list = ticket.targetInstances;
  NSArray *first = @[ TextBox(), Stepper() ];
  NSArray *second = @[ Stepper(), TextBox(), TextBox() ];
  [ticket registerTargetInstances:first];
  EXPECT_EQUAL_OBJECTS(first, list);
  [ticket registerTargetInstances:second];
  EXPECT_EQUAL_OBJECTS(second, list);
  EXPECT_TRUE(list == ticket.targetInstances);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketTargets, StayWhenTheTicketsOwnListIsRegistered) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  NSArray *targets = @[ TextBox(), Stepper() ];
  [ticket registerTargetInstances:targets];
  NSMutableArray *list = ticket.targetInstances;
  [ticket registerTargetInstances:list];
  EXPECT_EQUAL_OBJECTS(targets, ticket.targetInstances);
  EXPECT_TRUE(list == ticket.targetInstances);
}

OBJC_TEST(PrintTicketTargets, AreKeptUntilReplacedOrTheTicketGoes) {
  Job job(kColorDevice);
  NSTextField *box = TextBox();
  Ticket *ticket = [[Ticket alloc] initWithDefaultValue:@"default"
                                              ticketKey:@"K"
                                             commonInfo:job.info()];
  EXPECT_EQ(1, ReferencesLeft(box, [&] { [ticket registerTargetInstances:@[ box ]]; }));
  EXPECT_EQ(-1, ReferencesLeft(box, [&] { [ticket registerTargetInstances:@[]]; }));
  EXPECT_EQ(1, ReferencesLeft(box, [&] { [ticket registerTargetInstances:@[ box ]]; }));
  EXPECT_EQ(-1, ReferencesLeft(box, [&] { [ticket release]; }));
}

OBJC_TEST(PrintTicketRestoreDefaults, ShowsTheDefaultInEveryTargetFirstToLastAndWritesNothing) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  job.Store(@"K", @"chosen");
  Strings record;
  [ticket registerTargetInstances:@[
    [RecordingTarget targetNamed:"first" record:&record],
    [RecordingTarget targetNamed:"second" record:&record],
    [RecordingTarget targetNamed:"third" record:&record]
  ]];
  [ticket restoreDefaults];
  EXPECT_EQ((Strings{"first setStringValue default", "second setStringValue default",
                     "third setStringValue default"}),
            record);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketSave, WritesTheTextOfTheFirstTargetOnly) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  NSTextField *box = TextBox();
  NSStepper *stepper = Stepper();
  [box setStringValue:@"12"];
  [stepper setStringValue:@"34"];
  [ticket registerTargetInstances:@[ box, stepper ]];
  [ticket saveTicket];
  EXPECT_EQUAL_OBJECTS(@{@"K" : @"12"}, [job.host() allSettings]);
  EXPECT_EQ((Strings{"set K=12"}), interposed::Calls());
}

OBJC_TEST(PrintTicketSave, DoesNotReadTheOtherTargets) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  Strings record;
  RecordingTarget *first = [RecordingTarget targetNamed:"first" record:&record];
  first->shownText = @"12";
  [ticket
      registerTargetInstances:@[ first, [RecordingTarget targetNamed:"second" record:&record] ]];
  [ticket saveTicket];
  EXPECT_EQ((Strings{"first stringValue"}), record);
}

OBJC_TEST(PrintTicketSave, WithoutTargetsDoesNothing) {
  Job job(kColorDevice);
  [Made(job) saveTicket];
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketSave, IgnoresAWriteThatFails) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  NSTextField *box = TextBox();
  [box setStringValue:@"12"];
  [ticket registerTargetInstances:@[ box ]];
  interposed::FailWrites(kPMItemIsLocked);
  [ticket saveTicket];
  EXPECT_EQUAL_OBJECTS(@"default", job[@"K"]);
  EXPECT_EQUAL_OBJECTS(@"12", [box stringValue]);
}

OBJC_TEST(PrintTicketRestore, ShowsTheStoredValueInEveryTargetFirstToLastAndAnswersIt) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  job.Store(@"K", @"12");
  Strings record;
  [ticket registerTargetInstances:@[
    [RecordingTarget targetNamed:"first" record:&record], [RecordingTarget targetNamed:"second"
                                                                                record:&record]
  ]];
  EXPECT_EQUAL_OBJECTS(@"12", [ticket restoreTicketFailSafe]);
  EXPECT_EQ((Strings{"first setStringValue 12", "second setStringValue 12"}), record);
  EXPECT_EQ((Strings{"get K"}), interposed::Calls());
}

OBJC_TEST(PrintTicketRestore, ShowsTheDefaultWhereNothingIsStoredAndWritesNothing) {
  Job job(kColorDevice);
  Ticket *ticket = Make(job, @"7");
  NSTextField *box = TextBox();
  NSStepper *stepper = Stepper();
  [ticket registerTargetInstances:@[ box, stepper ]];
  job.Store(@"K", nil);
  EXPECT_EQUAL_OBJECTS(@"7", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"7", [box stringValue]);
  EXPECT_EQUAL_OBJECTS(@"7", [stepper stringValue]);
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
  EXPECT_EQ((Strings{"get K"}), interposed::Calls());
}

OBJC_TEST(PrintTicketRestore, ShowsTheDefaultWhenTheReadFails) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  job.Store(@"K", @"chosen");
  NSTextField *box = TextBox();
  [ticket registerTargetInstances:@[ box ]];
  interposed::FailReads(1);
  EXPECT_EQUAL_OBJECTS(@"default", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"default", [box stringValue]);
  EXPECT_EQUAL_OBJECTS(@"chosen", job[@"K"]);
}

OBJC_TEST(PrintTicketRestore, AnswersWithoutTargetsAndWithoutSettings) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  job.Store(@"K", @"12");
  EXPECT_EQUAL_OBJECTS(@"12", [ticket restoreTicketFailSafe]);
  job.DropSettings();
  EXPECT_EQUAL_OBJECTS(@"default", [ticket restoreTicketFailSafe]);
}

OBJC_TEST(PrintTicketRestore, ReadsTheSettingsAnewEveryTimeAndDoesNotJudgeTheValue) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job);
  for (NSString *value in @[ @"1", @"no number", @"", @"99999" ]) {
    job.Store(@"K", value);
    EXPECT_EQUAL_OBJECTS(value, [ticket restoreTicketFailSafe]);
    EXPECT_EQUAL_OBJECTS(value, job[@"K"]);
  }
}

OBJC_TEST(PrintTicketVerify, DoesNothingEvenUnderTheKeyOfTheColorWithoutColor) {
  Job job(kMonoDevice);
  Ticket *ticket = Make(job, @"Black", [job.info() ticketKeyColor]);
  job.Store([job.info() ticketKeyColor], @"Red");
  [ticket verifyTicket];
  [ticket restoreTicketFailSafe];
  EXPECT_EQUAL_OBJECTS(@"Red", job[[job.info() ticketKeyColor]]);
  EXPECT_EQ((Strings{"get VQBNColor"}), interposed::Calls());
}
