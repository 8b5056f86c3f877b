#import "tickets/velmoraBNPrintTicketValidRV2.h"

#import "tests/tickets/TicketTest.h"

namespace {

using Ticket = velmoraBNPrintTicketValidRV2;

Ticket *Made(const Job &job, NSArray *targets, NSString *default_value = @"Off") {
  Ticket *ticket = [[[Ticket alloc] initWithDefaultValue:default_value
                                               ticketKey:@"K"
                                              commonInfo:job.info()] autorelease];
  [ticket registerTargetInstances:targets];
  interposed::Clear();
  return ticket;
}

void ExpectRestored(NSString *stored, NSInteger state) {
  SCOPED_TRACE([stored UTF8String]);
  Job job(kColorDevice);
  NSButton *check_box = CheckBox();
  [check_box
      setState:state == NSControlStateValueOn ? NSControlStateValueOff : NSControlStateValueOn];
  Ticket *ticket = Made(job, @[ check_box ]);
  job.Store(@"K", stored);
  EXPECT_EQUAL_OBJECTS(stored, [ticket restoreTicketFailSafe]);
  EXPECT_EQ(state, [check_box state]);
  EXPECT_EQUAL_OBJECTS(stored, job[@"K"]);
  EXPECT_EQ((Strings{"get K"}), interposed::Calls());
}

}  // namespace

OBJC_TEST(PrintTicketValidClass, AddsNoFields) {
  EXPECT_TRUE([Ticket superclass] == [velmoraBNPrintTicketRV2 class]);
  EXPECT_EQ(Strings{}, FieldsOf([Ticket class]));
}

OBJC_TEST(PrintTicketValid, StoresItsDefaultLikeEveryTicket) {
  Job job(kColorDevice);
  Made(job, @[], @"On");
  EXPECT_EQUAL_OBJECTS(@{@"K" : @"On"}, [job.host() allSettings]);
}

OBJC_TEST(PrintTicketValid, TitlesEveryTargetFirstToLast) {
  Job job(kColorDevice);
  Strings record;
  Ticket *ticket = Made(job, @[
    [RecordingTarget targetNamed:"first" record:&record], [RecordingTarget targetNamed:"second"
                                                                                record:&record]
  ]);
  [ticket setTitle:@"Print numbers"];
  EXPECT_EQ((Strings{"first setTitle Print numbers", "second setTitle Print numbers"}), record);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketValid, TitlesARealCheckBox) {
  Job job(kColorDevice);
  NSButton *check_box = CheckBox();
  [Made(job, @[ check_box ]) setTitle:@"Print numbers"];
  EXPECT_EQUAL_OBJECTS(@"Print numbers", [check_box title]);
}

OBJC_TEST(PrintTicketValidSave, WritesOnForACheckedBox) {
  Job job(kColorDevice);
  NSButton *check_box = CheckBox();
  [check_box setState:NSControlStateValueOn];
  [Made(job, @[ check_box ]) saveTicket];
  EXPECT_EQ((Strings{"set K=On"}), interposed::Calls());
}

OBJC_TEST(PrintTicketValidSave, WritesOffForAnUncheckedBox) {
  Job job(kColorDevice);
  [Made(job, @[ CheckBox() ], @"On") saveTicket];
  EXPECT_EQ((Strings{"set K=Off"}), interposed::Calls());
}

OBJC_TEST(PrintTicketValidSave, WritesOffForAMixedBox) {
  Job job(kColorDevice);
  NSButton *check_box = CheckBox();
  [check_box setAllowsMixedState:YES];
  [check_box setState:NSMixedState];
  ASSERT_EQ(NSMixedState, [check_box state]);
  [Made(job, @[ check_box ], @"On") saveTicket];
  EXPECT_EQ((Strings{"set K=Off"}), interposed::Calls());
}

OBJC_TEST(PrintTicketValidSave, WritesOffForAnyStateButOneAndReadsTheFirstTargetOnly) {
  for (NSInteger state : {-1, 0, 2}) {
    Job job(kColorDevice);
    Strings record;
    RecordingTarget *first = [RecordingTarget targetNamed:"first" record:&record];
    RecordingTarget *second = [RecordingTarget targetNamed:"second" record:&record];
    first->shownState = state;
    second->shownState = 1;
    [Made(job, (@[ first, second ])) saveTicket];
    EXPECT_EQ((Strings{"first state"}), record);
    EXPECT_EQ((Strings{"set K=Off"}), interposed::Calls());
  }
}

OBJC_TEST(PrintTicketValidSave, WithoutTargetsDoesNothing) {
  Job job(kColorDevice);
  [Made(job, @[]) saveTicket];
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketValidSave, IgnoresAWriteThatFails) {
  Job job(kColorDevice);
  NSButton *check_box = CheckBox();
  [check_box setState:NSControlStateValueOn];
  Ticket *ticket = Made(job, @[ check_box ]);
  interposed::FailWrites(1);
  [ticket saveTicket];
  EXPECT_EQUAL_OBJECTS(@"Off", job[@"K"]);
}

OBJC_TEST(PrintTicketValidRestore, OnChecksTheBox) { ExpectRestored(@"On", NSControlStateValueOn); }

OBJC_TEST(PrintTicketValidRestore, OffUnchecksTheBox) {
  ExpectRestored(@"Off", NSControlStateValueOff);
}

OBJC_TEST(PrintTicketValidRestore, AnyOtherValueUnchecksTheBoxAndIsNotRepaired) {
  for (NSString *value in @[ @"on", @"ON", @"On ", @"OnOn", @"", @"1", @"YES" ]) {
    ExpectRestored(value, NSControlStateValueOff);
  }
}

OBJC_TEST(PrintTicketValidRestore, WithoutStoredValueAnswersTheVeryDefaultAndWritesNothing) {
  for (NSString *text in @[ @"On", @"Off", @"Perhaps" ]) {
    Job job(kColorDevice);
    NSMutableString *default_value = [NSMutableString stringWithString:text];
    NSButton *check_box = CheckBox();
    Ticket *ticket = Made(job, @[ check_box ], default_value);
    job.Store(@"K", nil);
    EXPECT_TRUE([ticket restoreTicketFailSafe] == default_value);
    EXPECT_EQ([text isEqual:@"On"] ? NSControlStateValueOn : NSControlStateValueOff,
              [check_box state]);
    EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
  }
}

OBJC_TEST(PrintTicketValidRestore, SetsEveryTargetFirstToLast) {
  Job job(kColorDevice);
  Strings record;
  Ticket *ticket = Made(job, @[
    [RecordingTarget targetNamed:"first" record:&record], [RecordingTarget targetNamed:"second"
                                                                                record:&record]
  ]);
  job.Store(@"K", @"On");
  [ticket restoreTicketFailSafe];
  job.Store(@"K", @"Off");
  [ticket restoreTicketFailSafe];
  EXPECT_EQ(
      (Strings{"first setState 1", "second setState 1", "first setState 0", "second setState 0"}),
      record);
}

OBJC_TEST(PrintTicketValidRestore, AnswersWithoutTargets) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job, @[]);
  job.Store(@"K", @"On");
  EXPECT_EQUAL_OBJECTS(@"On", [ticket restoreTicketFailSafe]);
}

OBJC_TEST(PrintTicketValid, ShowsItsDefaultAsTextLikeTheBaseTicket) {
  Job job(kColorDevice);
  Strings record;
  [Made(job, @[ [RecordingTarget targetNamed:"box" record:&record] ]) restoreDefaults];
  EXPECT_EQ((Strings{"box setStringValue Off"}), record);
}

OBJC_TEST(PrintTicketValid, VerifiesNothing) {
  Job job(kMonoDevice);
  [Made(job, @[ CheckBox() ]) verifyTicket];
  EXPECT_EQ(Strings{}, interposed::Calls());
}
