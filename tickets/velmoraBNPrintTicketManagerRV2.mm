#import "tickets/velmoraBNPrintTicketManagerRV2.h"

NSString *const BNPTMNameValid = @"Valid";
NSString *const BNPTMNameSize = @"Size";
NSString *const BNPTMNameDensity = @"Density";
NSString *const BNPTMNameColor = @"Color";
NSString *const BNPTMNameStartNumber = @"StartNumber";

NSString *const BNPTMKeyInstancePointer = @"InstancePointer";
NSString *const BNPTMKeyClass = @"Class";
NSString *const BNPTMKeyDefaultValue = @"DefaultValue";
NSString *const BNPTMKeyTicketKey = @"TicketKey";
NSString *const BNPTMKeyPrefix = @"Prefix";

namespace {

NSString *DecimalText(id numberOrString) {
  return [numberOrString isKindOfClass:[NSString class]] ? numberOrString
                                                         : [numberOrString stringValue];
}

id MakeTicket(NSDictionary *info, velmoraBNCommonInfoRV2 *commonInfo) {
  Class ticketClass = [info objectForKey:BNPTMKeyClass];
  NSString *defaultValue = [info objectForKey:BNPTMKeyDefaultValue];
  NSString *ticketKey = [info objectForKey:BNPTMKeyTicketKey];
  NSString *prefix = [info objectForKey:BNPTMKeyPrefix];
  if (prefix != nil) {
    return [[ticketClass alloc] initWithDefaultValue:defaultValue
                                           ticketKey:ticketKey
                                          commonInfo:commonInfo
                                              prefix:prefix];
  }
  return [[ticketClass alloc] initWithDefaultValue:defaultValue
                                         ticketKey:ticketKey
                                        commonInfo:commonInfo];
}

}  // namespace

@implementation velmoraBNPrintTicketManagerRV2

@synthesize ticketValid = _ticketValid;
@synthesize ticketSize = _ticketSize;
@synthesize ticketDensity = _ticketDensity;
@synthesize ticketColor = _ticketColor;
@synthesize ticketStartNumber = _ticketStartNumber;

- (instancetype)initWithCommonInfo:(velmoraBNCommonInfoRV2 *)commonInfo {
  self = [super init];
  if (self == nil) return nil;
  if (commonInfo == nil) {
    [self release];
    return nil;
  }
  for (NSDictionary *info in [self BNPTMTicketInfosFromCommonInfo:commonInfo]) {
    id *field = static_cast<id *>([[info objectForKey:BNPTMKeyInstancePointer] pointerValue]);
    *field = MakeTicket(info, commonInfo);
    if (*field == nil) {
      [self release];
      return nil;
    }
  }
  return self;
}

- (void)dealloc {
  [_ticketValid release];
  [_ticketSize release];
  [_ticketDensity release];
  [_ticketColor release];
  [_ticketStartNumber release];
  [super dealloc];
}

// One dictionary a ticket, in the order in which the tickets are made. A literal raises where a
// value is absent: what the setting information lacks must surface here.
- (NSArray *)BNPTMTicketInfosFromCommonInfo:(velmoraBNCommonInfoRV2 *)commonInfo {
  return @[
    @{
      BNPTMKeyInstancePointer : [NSValue valueWithPointer:&_ticketValid],
      BNPTMKeyClass : [velmoraBNPrintTicketValidRV2 class],
      BNPTMKeyDefaultValue : [commonInfo defaultValid],
      BNPTMKeyTicketKey : [commonInfo ticketKeyValid],
    },
    @{
      BNPTMKeyInstancePointer : [NSValue valueWithPointer:&_ticketSize],
      BNPTMKeyClass : [velmoraBNPrintTicketPopUpRV2 class],
      BNPTMKeyDefaultValue : [commonInfo defaultSize],
      BNPTMKeyTicketKey : [commonInfo ticketKeySize],
      BNPTMKeyPrefix : [commonInfo prefixForLocalizeSize],
    },
    @{
      BNPTMKeyInstancePointer : [NSValue valueWithPointer:&_ticketDensity],
      BNPTMKeyClass : [velmoraBNPrintTicketPopUpRV2 class],
      BNPTMKeyDefaultValue : [commonInfo defaultDensity],
      BNPTMKeyTicketKey : [commonInfo ticketKeyDensity],
      BNPTMKeyPrefix : [commonInfo prefixForLocalizeDensity],
    },
    @{
      BNPTMKeyInstancePointer : [NSValue valueWithPointer:&_ticketColor],
      BNPTMKeyClass : [velmoraBNPrintTicketPopUpRV2 class],
      BNPTMKeyDefaultValue : [commonInfo defaultColor],
      BNPTMKeyTicketKey : [commonInfo ticketKeyColor],
      BNPTMKeyPrefix : [commonInfo prefixForLocalizeColor],
    },
    @{
      BNPTMKeyInstancePointer : [NSValue valueWithPointer:&_ticketStartNumber],
      BNPTMKeyClass : [velmoraBNPrintTicketNumberRV2 class],
      BNPTMKeyDefaultValue : DecimalText([commonInfo defaultStartNumber]),
      BNPTMKeyTicketKey : [commonInfo ticketKeyStartNumber],
    },
  ];
}

- (void)registerTargetInstances:(NSArray *)targets ticketName:(NSString *)ticketName {
  velmoraBNPrintTicketRV2 *ticket = [[self BNPTMAllTicketsDictionary] objectForKey:ticketName];
  [ticket registerTargetInstances:targets];
}

- (void)setTitleToValid:(NSString *)title {
  [self.ticketValid setTitle:title];
}

- (void)restoreAllTicketsFailSafe {
  for (velmoraBNPrintTicketRV2 *ticket in [self BNPTMAllTicketsArray]) {
    [ticket restoreTicketFailSafe];
  }
}

- (NSString *)restoreTicketFailSafe:(NSString *)ticketName {
  velmoraBNPrintTicketRV2 *ticket = [[self BNPTMAllTicketsDictionary] objectForKey:ticketName];
  return [ticket restoreTicketFailSafe];
}

- (void)saveAllTickets {
  for (velmoraBNPrintTicketRV2 *ticket in [self BNPTMAllTicketsArray]) [ticket saveTicket];
}

- (void)restoreDefaultsExceptValid {
  for (velmoraBNPrintTicketRV2 *ticket in [self BNPTMAllTicketsArray]) {
    if (ticket != self.ticketValid) [ticket restoreDefaults];
  }
}

- (void)verifyAllTickets {
  for (velmoraBNPrintTicketRV2 *ticket in [self BNPTMAllTicketsArray]) [ticket verifyTicket];
}

- (void)changeValue:(id)sender ticketName:(NSString *)ticketName {
  NSDictionary *linkedTickets = @{BNPTMNameStartNumber : self.ticketStartNumber};
  [[linkedTickets objectForKey:ticketName] changeValue:sender];
}

- (NSArray *)BNPTMAllTicketsArray {
  return @[
    self.ticketValid, self.ticketSize, self.ticketDensity, self.ticketColor, self.ticketStartNumber
  ];
}

- (NSDictionary *)BNPTMAllTicketsDictionary {
  return @{
    BNPTMNameValid : self.ticketValid,
    BNPTMNameSize : self.ticketSize,
    BNPTMNameDensity : self.ticketDensity,
    BNPTMNameColor : self.ticketColor,
    BNPTMNameStartNumber : self.ticketStartNumber,
  };
}

@end
