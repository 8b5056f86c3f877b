#import "tickets/velmoraBNPrintTicketNumberRV2.h"

#import "tests/tickets/TicketTest.h"

namespace {

using Ticket = velmoraBNPrintTicketNumberRV2;

Ticket *Made(const Job &job, NSArray *targets) {
  Ticket *ticket = [[[Ticket alloc] initWithDefaultValue:@"1" ticketKey:@"K"
                                              commonInfo:job.info()] autorelease];
  [ticket registerTargetInstances:targets];
  interposed::Clear();
  return ticket;
}

}  // namespace

OBJC_TEST(PrintTicketNumberClass, AddsNoFields) {
  EXPECT_TRUE([Ticket superclass] == [velmoraBNPrintTicketRV2 class]);
  EXPECT_EQ(Strings{}, FieldsOf([Ticket class]));
}

OBJC_TEST(PrintTicketNumber, ChangeShowsTheNumberInBoxAndStepperAndWritesNothing) {
  Job job(kColorDevice);
  NSTextField *box = TextBox();
  NSStepper *stepper = Stepper();
  Ticket *ticket = Made(job, (@[ box, stepper ]));
  [ticket changeValue:@25];
  EXPECT_EQUAL_OBJECTS(@"25", [box stringValue]);
  EXPECT_EQUAL_OBJECTS(@"25", [stepper stringValue]);
  EXPECT_EQ(25, [stepper intValue]);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketNumber, ChangeWritesEveryTargetFirstToLast) {
  Job job(kColorDevice);
  Strings record;
  Ticket *ticket = Made(job, @[
    [RecordingTarget targetNamed:"box" record:&record], [RecordingTarget targetNamed:"stepper"
                                                                              record:&record]
  ]);
  [ticket changeValue:@25];
  EXPECT_EQ((Strings{"box setStringValue 25", "stepper setStringValue 25"}), record);
}

OBJC_TEST(PrintTicketNumber, ChangeTakesAnySendersText) {
  Job job(kColorDevice);
  NSTextField *sender = TextBox();
  NSTextField *box = TextBox();
  [sender setStringValue:@"007"];
  [Made(job, @[ box ]) changeValue:sender];
  EXPECT_EQUAL_OBJECTS(@"007", [box stringValue]);
}

OBJC_TEST(PrintTicketNumber, ChangeWithoutTargetsDoesNothing) {
  Job job(kColorDevice);
  [Made(job, @[]) changeValue:@25];
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PrintTicketNumber, AChangedNumberIsStoredByTheNextSave) {
  Job job(kColorDevice);
  Ticket *ticket = Made(job, (@[ TextBox(), Stepper() ]));
  [ticket changeValue:@25];
  EXPECT_EQUAL_OBJECTS(@"1", job[@"K"]);
  [ticket saveTicket];
  EXPECT_EQUAL_OBJECTS(@"25", job[@"K"]);
}

OBJC_TEST(PrintTicketNumber, RestoresTheStoredTextAndItsDefaultLikeTheBaseTicket) {
  Job job(kColorDevice);
  NSTextField *box = TextBox();
  NSStepper *stepper = Stepper();
  Ticket *ticket = Made(job, (@[ box, stepper ]));
  job.Store(@"K", @"42");
  EXPECT_EQUAL_OBJECTS(@"42", [ticket restoreTicketFailSafe]);
  EXPECT_EQUAL_OBJECTS(@"42", [box stringValue]);
  EXPECT_EQUAL_OBJECTS(@"42", [stepper stringValue]);
  [ticket restoreDefaults];
  EXPECT_EQUAL_OBJECTS(@"1", [box stringValue]);
  EXPECT_EQUAL_OBJECTS(@"1", [stepper stringValue]);
  EXPECT_EQUAL_OBJECTS(@"42", job[@"K"]);
}
