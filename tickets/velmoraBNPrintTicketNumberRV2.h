// The start number.

#ifndef TICKETS_VELMORABNPRINTTICKETNUMBERRV2_H
#define TICKETS_VELMORABNPRINTTICKETNUMBERRV2_H

#import "tickets/velmoraBNPrintTicketRV2.h"

/// Its targets are the text box, whose text is stored, and the stepper.
@interface velmoraBNPrintTicketNumberRV2 : velmoraBNPrintTicketRV2

/// Shows the sender's stringValue in every target. The print settings follow at the next save.
- (void)changeValue:(id)sender;

@end

#endif
