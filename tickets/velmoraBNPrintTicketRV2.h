// One setting of the panel, bound to one key of the job's print settings.

#ifndef TICKETS_VELMORABNPRINTTICKETRV2_H
#define TICKETS_VELMORABNPRINTTICKETRV2_H

#import "settinginfo/velmoraBNCommonInfoRV2.h"

/// Moves the setting's value between the print settings and the controls that show it (the target
/// instances). Keeps no value of its own: every restore reads the print settings anew, every save
/// writes them anew. All targets are written, first to last; only the first is read. Failures are
/// silent: a read that fails counts as no value, a write that fails is lost. Main thread only.
///
/// This base class serves a control whose value is its text (setStringValue:, stringValue).
@interface velmoraBNPrintTicketRV2 : NSObject {
  NSString *_key;
  NSString *_defaultValue;
  velmoraBNCommonInfoRV2 *_commonInfo;
  NSMutableArray *_targetInstances;
}

/// The print-settings key; the stored object itself.
@property(nonatomic, readonly, copy) NSString *key;
/// What is shown when the print settings hold no value, in the stored format; the object itself.
@property(nonatomic, readonly, copy) NSString *defaultValue;
@property(nonatomic, readonly, retain) velmoraBNCommonInfoRV2 *commonInfo;
/// The ticket's own list of controls, not a copy.
@property(nonatomic, readonly, copy) NSMutableArray *targetInstances;

/// Retains its arguments and writes the default under the key if the print settings have no value
/// there. nil: an argument is nil (nothing is written then), or the common information is not ready
/// (the default may have been written).
- (instancetype)initWithDefaultValue:(NSString *)defaultValue
                           ticketKey:(NSString *)ticketKey
                          commonInfo:(velmoraBNCommonInfoRV2 *)commonInfo;

/// Replaces the targets by these controls, which the ticket retains.
- (void)registerTargetInstances:(NSArray *)targets;

/// Shows the default in every target. The print settings follow at the next save.
- (void)restoreDefaults;

/// Writes the first target's value under the key; nothing without a target.
- (void)saveTicket;

/// Shows the stored value, or the default where none is stored, in every target and answers it. The
/// print settings stay as they are.
- (NSString *)restoreTicketFailSafe;

/// Corrects the stored value to what the printer can do. Nothing to correct here.
- (void)verifyTicket;

/// The value stored under the key, which the print settings own; nil: none, or the read failed.
- (NSString *)BNPTPrintSettings:(NSString *)key;

/// Stores the value, unlocked, under the key; nil removes the key. NO: the write failed.
- (BOOL)BNPTSetPrintSettings:(NSString *)key value:(NSString *)value;

@end

#endif
