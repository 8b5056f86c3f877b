// The five print tickets of the panel.

#ifndef TICKETS_VELMORABNPRINTTICKETMANAGERRV2_H
#define TICKETS_VELMORABNPRINTTICKETMANAGERRV2_H

#import "tickets/velmoraBNPrintTicketNumberRV2.h"
#import "tickets/velmoraBNPrintTicketPopUpRV2.h"
#import "tickets/velmoraBNPrintTicketValidRV2.h"

extern "C" {

// Ticket names.
extern NSString *const BNPTMNameValid;
extern NSString *const BNPTMNameSize;
extern NSString *const BNPTMNameDensity;
extern NSString *const BNPTMNameColor;
extern NSString *const BNPTMNameStartNumber;

// Keys of the dictionary that describes how one ticket is made.
extern NSString *const BNPTMKeyInstancePointer;
extern NSString *const BNPTMKeyClass;
extern NSString *const BNPTMKeyDefaultValue;
extern NSString *const BNPTMKeyTicketKey;
extern NSString *const BNPTMKeyPrefix;

}  // extern "C"

/// Owns the tickets and is the one way to reach them. Operations on all tickets run in the order
/// Valid, Size, Density, Color, StartNumber. Names are compared exactly; an operation with a name
/// that it does not know does nothing. Main thread only.
@interface velmoraBNPrintTicketManagerRV2 : NSObject {
  velmoraBNPrintTicketValidRV2 *_ticketValid;
  velmoraBNPrintTicketPopUpRV2 *_ticketSize;
  velmoraBNPrintTicketPopUpRV2 *_ticketDensity;
  velmoraBNPrintTicketPopUpRV2 *_ticketColor;
  velmoraBNPrintTicketNumberRV2 *_ticketStartNumber;
}

@property(nonatomic, readonly, retain) velmoraBNPrintTicketValidRV2 *ticketValid;
@property(nonatomic, readonly, retain) velmoraBNPrintTicketPopUpRV2 *ticketSize;
@property(nonatomic, readonly, retain) velmoraBNPrintTicketPopUpRV2 *ticketDensity;
@property(nonatomic, readonly, retain) velmoraBNPrintTicketPopUpRV2 *ticketColor;
@property(nonatomic, readonly, retain) velmoraBNPrintTicketNumberRV2 *ticketStartNumber;

/// Makes the five tickets from the defaults, keys and prefixes that the common information answers;
/// the default start number may be a number or a string. The common information is not retained,
/// but each ticket does. nil: no common information, or a ticket could not be made; defaults
/// already written to the print settings stay. Raises NSInvalidArgumentException when the common
/// information lacks a default, a key or a prefix.
- (instancetype)initWithCommonInfo:(velmoraBNCommonInfoRV2 *)commonInfo;

/// Replaces the controls of the named ticket.
- (void)registerTargetInstances:(NSArray *)targets ticketName:(NSString *)ticketName;

/// Gives the on/off switch its title.
- (void)setTitleToValid:(NSString *)title;

/// Shows every stored value, or its default, in the controls.
- (void)restoreAllTicketsFailSafe;

/// Shows the named ticket's value and answers it: the value of Valid and StartNumber, the
/// unlocalized localized-string key of Size, Density and Color. nil: no such name.
- (NSString *)restoreTicketFailSafe:(NSString *)ticketName;

/// Writes every control's value to the print settings.
- (void)saveAllTickets;

/// Shows the defaults of all but the on/off switch. The print settings follow at the next save.
- (void)restoreDefaultsExceptValid;

/// Corrects the stored values to what the printer can do.
- (void)verifyAllTickets;

/// Shows the sender's stringValue in all controls of the start number. Other names do nothing: only
/// the start number has controls that must be kept equal.
- (void)changeValue:(id)sender ticketName:(NSString *)ticketName;

/// A new array of the tickets in their fixed order.
- (NSArray *)BNPTMAllTicketsArray;

/// A new dictionary from ticket name to ticket.
- (NSDictionary *)BNPTMAllTicketsDictionary;

@end

#endif
