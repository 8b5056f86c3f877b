#import "host/extension/HostCallback.h"

@implementation HostCallback

- (instancetype)initWithPrintSettings:(PMPrintSettings)printSettings ppdFile:(ppd_file_t *)ppdFile {
  self = [super init];
  if (self == nil) return nil;
  PMRetain(printSettings);
  _printSettings = printSettings;
  _ppdFile = ppdFile;
  return self;
}

- (void)dealloc {
  PMRelease(_printSettings);
  [super dealloc];
}

- (void)forgetPPDFile {
  _ppdFile = nullptr;
}

- (PMPrintSession)printSession {
  return nullptr;
}

- (PMPrintSettings)printSettings {
  return _printSettings;
}

- (PMPageFormat)pageFormat {
  return nullptr;
}

- (PMPrinter)PMPrinter {
  return nullptr;
}

- (ppd_file_t *)ppdFile {
  return _ppdFile;
}

- (BOOL)willChangePPDOptionKeyValue:(NSString *)option ppdChoice:(NSString *)choice {
  (void)option;
  (void)choice;
  return YES;
}

@end
