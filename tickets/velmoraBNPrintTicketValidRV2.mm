#import "tickets/velmoraBNPrintTicketValidRV2.h"

@implementation velmoraBNPrintTicketValidRV2

- (void)setTitle:(NSString *)title {
  for (NSButton *checkBox in self.targetInstances) [checkBox setTitle:title];
}

- (void)saveTicket {
  if ([self.targetInstances count] == 0) return;
  NSButton *checkBox = [self.targetInstances objectAtIndex:0];
  [self BNPTSetPrintSettings:self.key
                       value:[checkBox state] == NSControlStateValueOn ? BNCIFunctionOn
                                                                       : BNCIFunctionOff];
}

- (NSString *)restoreTicketFailSafe {
  NSString *value = [self BNPTPrintSettings:self.key];
  if (value == nil) value = self.defaultValue;
  BOOL on = [value isEqualToString:BNCIFunctionOn];
  for (NSButton *checkBox in self.targetInstances) {
    [checkBox setState:on ? NSControlStateValueOn : NSControlStateValueOff];
  }
  return value;
}

@end
