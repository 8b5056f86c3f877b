// What the dialog answers to the panels of extension bundles.

#ifndef HOST_EXTENSION_HOSTCALLBACK_H
#define HOST_EXTENSION_HOSTCALLBACK_H

#import <PrintCore/PrintCore.h>

/// The job's print settings and the queue's PPD file; there is no session, page format or printer
/// object here (NULL), and a panel may change any PPD option (YES).
@interface HostCallback : NSObject <PDEPlugInCallbackProtocol> {
  PMPrintSettings _printSettings;
  ppd_file_t *_ppdFile;
}

/// Retains the settings. The PPD file must outlive the object, or be forgotten in time.
- (instancetype)initWithPrintSettings:(PMPrintSettings)printSettings ppdFile:(ppd_file_t *)ppdFile;

/// Answers no PPD file from now on (NULL), to whoever still holds the object.
- (void)forgetPPDFile;

@end

#endif
