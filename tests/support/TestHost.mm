#import "tests/support/TestHost.h"

@implementation TestHost

+ (instancetype)hostWithPPD:(ppd_file_t *)ppd {
  TestHost *host = [[[self alloc] init] autorelease];
  PMCreatePrintSettings(&host->settings);
  host->ppd = ppd;
  return host;
}

- (void)dealloc {
  PMRelease(settings);
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

- (NSDictionary *)allSettings {
  CFDictionaryRef values = nullptr;
  PMPrintSettingsCopyAsDictionary(settings, &values);
  return [(NSDictionary *)values autorelease];
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
