// What the tests of the tickets share.

#ifndef TESTS_TICKETS_TICKETTEST_H
#define TESTS_TICKETS_TICKETTEST_H

#import "tests/support/ClassShape.h"
#import "tests/support/HalfMade.h"
#import "tests/support/Job.h"
#import "tests/support/ObjCTest.h"
#import "tests/tickets/RecordingTarget.h"
#import "tickets/velmoraBNPrintTicketManagerRV2.h"

/// A common information that is ready only the first times it is asked: never, unless told.
@interface ReluctantCommonInfo : velmoraBNCommonInfoRV2 {
 @public
  int readyTimes;
  int asked;
}
@end

/// A pop-up button with an item for each value, titled with the bundle's text for prefix and value,
/// the first one selected.
NSPopUpButton *PopUp(const Job &job, NSString *prefix, NSArray *values);

NSTextField *TextBox();
NSStepper *Stepper();
NSButton *CheckBox();

#endif
