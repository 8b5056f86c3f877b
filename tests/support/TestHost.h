// A print dialog's answers to a plug-in.

#ifndef TESTS_SUPPORT_TESTHOST_H
#define TESTS_SUPPORT_TESTHOST_H

#import <PrintCore/PrintCore.h>

@class velmoraBNPdeCallbackRV2;

/// Real print settings, empty at first, and a real PPD file; counts what it is asked for.
@interface TestHost : NSObject <PDEPlugInCallbackProtocol> {
 @public
  PMPrintSettings settings;  // may be set to NULL after a release: a job without settings
  ppd_file_t *ppd;
  int ppdFileCalls;
  int printSettingsCalls;
 @private
  NSDictionary *newSettings;  // what the platform itself puts into new settings
}

+ (instancetype)hostWithPPD:(ppd_file_t *)ppd;

/// Itself, as the type under which the plug-in takes it.
- (velmoraBNPdeCallbackRV2 *)callback;

/// The stored value, nil where there is none.
- (id)valueForSetting:(NSString *)key;
- (void)setValue:(id)value forSetting:(NSString *)key;
/// All keys and values but those that the platform puts into new settings.
- (NSDictionary *)allSettings;

@end

#endif
