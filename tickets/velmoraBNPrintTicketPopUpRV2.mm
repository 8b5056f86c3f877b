#import "tickets/velmoraBNPrintTicketPopUpRV2.h"

@implementation velmoraBNPrintTicketPopUpRV2

@synthesize prefix = _prefix;

- (instancetype)initWithDefaultValue:(NSString *)defaultValue
                           ticketKey:(NSString *)ticketKey
                          commonInfo:(velmoraBNCommonInfoRV2 *)commonInfo
                              prefix:(NSString *)prefix {
  self = [super initWithDefaultValue:defaultValue ticketKey:ticketKey commonInfo:commonInfo];
  if (self == nil) return nil;
  if (prefix == nil) {
    [self release];
    return nil;
  }
  _prefix = [prefix retain];
  return self;
}

- (void)dealloc {
  [_prefix release];
  [super dealloc];
}

- (NSString *)BNPTLocalizationKeyOfValue:(NSString *)value {
  return [NSString stringWithFormat:@"%@%@", self.prefix, value];
}

- (void)BNPTSelectItemWithLocalizationKey:(NSString *)localizationKey {
  NSString *title = [self.commonInfo localizedString:localizationKey];
  for (NSPopUpButton *popUp in self.targetInstances) [popUp selectItemWithTitle:title];
}

- (void)restoreDefaults {
  [self BNPTSelectItemWithLocalizationKey:[self BNPTLocalizationKeyOfValue:self.defaultValue]];
}

- (void)saveTicket {
  if ([self.targetInstances count] == 0) return;
  NSPopUpButton *popUp = [self.targetInstances objectAtIndex:0];
  [self BNPTSetPrintSettings:self.key value:[[popUp selectedItem] representedObject]];
}

- (NSString *)restoreTicketFailSafe {
  [self verifyTicket];
  NSString *value = [self BNPTPrintSettings:self.key];
  if (value == nil) value = self.defaultValue;
  NSString *localizationKey = [self BNPTLocalizationKeyOfValue:value];
  [self BNPTSelectItemWithLocalizationKey:localizationKey];
  return localizationKey;
}

- (void)verifyTicket {
  if (![self.key isEqualToString:[self.commonInfo ticketKeyColor]]) return;
  if ([self.commonInfo isColorPrinter]) return;
  [self BNPTSetPrintSettings:self.key value:self.defaultValue];
}

@end
