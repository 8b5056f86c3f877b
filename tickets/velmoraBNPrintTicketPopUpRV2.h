// A setting that is chosen from a pop-up menu.

#ifndef TICKETS_VELMORABNPRINTTICKETPOPUPRV2_H
#define TICKETS_VELMORABNPRINTTICKETPOPUPRV2_H

#import "tickets/velmoraBNPrintTicketRV2.h"

/// Its targets are pop-up buttons whose items carry the raw item value as represented object.
/// Stored is the raw value of the first target's selected item, never its title; without a
/// selection the key is removed. An item is found by its title: the localization of the prefix
/// followed directly by the raw value. A stored value that no item has is neither repaired nor
/// shown.
@interface velmoraBNPrintTicketPopUpRV2 : velmoraBNPrintTicketRV2 {
  NSString *_prefix;
}

/// The prefix of the menu items' localized-string keys; the stored object itself.
@property(nonatomic, readonly, copy) NSString *prefix;

/// As the base class's, and retains the prefix. nil also without a prefix (the default may have
/// been written).
- (instancetype)initWithDefaultValue:(NSString *)defaultValue
                           ticketKey:(NSString *)ticketKey
                          commonInfo:(velmoraBNCommonInfoRV2 *)commonInfo
                              prefix:(NSString *)prefix;

/// Verifies, selects the stored value's item (or the default's) in every target, and answers the
/// localized-string key of the value, not localized.
- (NSString *)restoreTicketFailSafe;

/// The color setting on a printer without color: stores the default, whatever is stored now. Any
/// other: nothing.
- (void)verifyTicket;

@end

#endif
