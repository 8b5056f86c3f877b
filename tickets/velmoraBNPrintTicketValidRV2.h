// The on/off switch of the function.

#ifndef TICKETS_VELMORABNPRINTTICKETVALIDRV2_H
#define TICKETS_VELMORABNPRINTTICKETVALIDRV2_H

#import "tickets/velmoraBNPrintTicketRV2.h"

/// Its targets are check boxes. Stored is BNCIFunctionOn when the first one's state is exactly on,
/// else BNCIFunctionOff; a mixed state counts as off. Shown as on is exactly BNCIFunctionOn. A
/// stored value that is neither is answered as it is and stays until the next save.
@interface velmoraBNPrintTicketValidRV2 : velmoraBNPrintTicketRV2

/// Gives every target this title.
- (void)setTitle:(NSString *)title;

@end

#endif
