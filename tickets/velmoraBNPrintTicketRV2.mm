#import "tickets/velmoraBNPrintTicketRV2.h"

@implementation velmoraBNPrintTicketRV2

@synthesize key = _key;
@synthesize defaultValue = _defaultValue;
@synthesize commonInfo = _commonInfo;
@synthesize targetInstances = _targetInstances;

- (instancetype)initWithDefaultValue:(NSString *)defaultValue
                           ticketKey:(NSString *)ticketKey
                          commonInfo:(velmoraBNCommonInfoRV2 *)commonInfo {
  self = [super init];
  if (self == nil) return nil;
  if (defaultValue == nil || ticketKey == nil || commonInfo == nil) {
    [self release];
    return nil;
  }
  _defaultValue = [defaultValue retain];
  _key = [ticketKey retain];
  _commonInfo = [commonInfo retain];
  _targetInstances = [[NSMutableArray alloc] initWithCapacity:0];

  // The job gets its default even from a ticket that is refused below: what is printed must not
  // depend on whether the panel could be made.
  if ([self BNPTPrintSettings:_key] == nil) {
    [self BNPTSetPrintSettings:_key value:_defaultValue];
  }
  if (_targetInstances == nil || ![_commonInfo isReady]) {
    [self release];
    return nil;
  }
  return self;
}

- (void)dealloc {
  [_defaultValue release];
  [_key release];
  [_commonInfo release];
  [_targetInstances release];
  [super dealloc];
}

- (void)registerTargetInstances:(NSArray *)targets {
  // A copy: the ticket's own list would be emptied before it is read.
  [self.targetInstances setArray:[NSArray arrayWithArray:targets]];
}

- (void)restoreDefaults {
  NSString *value = self.defaultValue;
  for (id target in self.targetInstances) [target setStringValue:value];
}

- (void)saveTicket {
  if ([self.targetInstances count] == 0) return;
  [self BNPTSetPrintSettings:self.key value:[[self.targetInstances objectAtIndex:0] stringValue]];
}

- (NSString *)restoreTicketFailSafe {
  NSString *value = [self BNPTPrintSettings:self.key];
  if (value == nil) value = self.defaultValue;
  for (id target in self.targetInstances) [target setStringValue:value];
  return value;
}

- (void)verifyTicket {
}

- (NSString *)BNPTPrintSettings:(NSString *)key {
  CFTypeRef value = nullptr;
  OSStatus status =
      PMPrintSettingsGetValue([self.commonInfo currentPrintSettings], (CFStringRef)key, &value);
  return status == 0 ? (NSString *)value : nil;
}

- (BOOL)BNPTSetPrintSettings:(NSString *)key value:(NSString *)value {
  return PMPrintSettingsSetValue([self.commonInfo currentPrintSettings], (CFStringRef)key,
                                 (CFTypeRef)value, false) == 0;
}

@end
