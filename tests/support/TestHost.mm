#import "tests/support/TestHost.h"

@implementation TestHost

+ (instancetype)hostWithPPD:(ppd_file_t *)ppd {
  TestHost *host = [[[self alloc] init] autorelease];
  PMCreatePrintSettings(&host->settings);
  host->newSettings = [[host settingsAsDictionary] retain];
  host->ppd = ppd;
  return host;
}

- (void)dealloc {
  PMRelease(settings);
  [newSettings release];
  [super dealloc];
}

- (velmoraBNPdeCallbackRV2 *)callback {
  return (velmoraBNPdeCallbackRV2 *)self;
}

- (id)valueForSetting:(NSString *)key {
  return [[self allSettings] objectForKey:key];
}

- (void)setValue:(id)value forSetting:(NSString *)key {
  PMPrintSettingsSetValue(settings, (CFStringRef)key, (CFTypeRef)value, false);
}

- (NSDictionary *)settingsAsDictionary {
  CFDictionaryRef values = nullptr;
  PMPrintSettingsCopyAsDictionary(settings, &values);
  return [(NSDictionary *)values autorelease];
}

- (NSDictionary *)allSettings {
  NSMutableDictionary *values =
      [NSMutableDictionary dictionaryWithDictionary:[self settingsAsDictionary]];
  for (NSString *key in newSettings) {
    if ([[values objectForKey:key] isEqual:[newSettings objectForKey:key]])
      [values removeObjectForKey:key];
  }
  return values;
}

- (PMPrintSession)printSession {
  return nullptr;
}

- (PMPrintSettings)printSettings {
  ++printSettingsCalls;
  return settings;
}

- (PMPageFormat)pageFormat {
  return nullptr;
}

- (PMPrinter)PMPrinter {
  return nullptr;
}

- (ppd_file_t *)ppdFile {
  ++ppdFileCalls;
  return ppd;
}

- (BOOL)willChangePPDOptionKeyValue:(NSString *)option ppdChoice:(NSString *)choice {
  (void)option;
  (void)choice;
  return YES;
}

@end
