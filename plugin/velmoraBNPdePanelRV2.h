// The panel that the plug-in adds to the print dialog.

#ifndef PLUGIN_VELMORABNPDEPANELRV2_H
#define PLUGIN_VELMORABNPDEPANELRV2_H

#import <PrintCore/PrintCore.h>

#import "view/velmoraBNViewControllerRV2.h"

/// Hands each request of the print dialog on to the common information or the view controller and
/// holds no settings itself. Main thread only.
@interface velmoraBNPdePanelRV2 : NSObject <PDEPanel> {
  velmoraBNViewControllerRV2 *_viewController;
  velmoraBNCommonInfoRV2 *_commonInfo;

 @private
  NSMutableArray *supportedOptions;
}

@property(nonatomic, readonly, retain) velmoraBNViewControllerRV2 *viewController;
@property(nonatomic, readonly, retain) velmoraBNCommonInfoRV2 *commonInfo;

/// Makes the common information and the view controller; no view yet. nil: an argument is nil, or
/// one of the two could not be made. Raises what the view controller raises.
- (instancetype)initWithCallback:(velmoraBNPdeCallbackRV2 *)callback bundle:(NSBundle *)bundle;

/// The keywords of the five PPD options that the panel shows, always the same array object. Writes
/// one line to the system log on every call.
- (NSArray *)supportedPPDOptionKeys;

/// Shows the print settings in the controls.
- (void)willShow;

/// YES, always: nothing on the panel needs an answer first.
- (BOOL)shouldHide;

/// YES, always: the panel has no help of its own.
- (BOOL)shouldShowHelp;

/// Corrects the print settings to what the printer can do, and answers whether to print.
- (BOOL)shouldPrint;

/// Writes the controls' values to the print settings. *error is never written.
- (BOOL)saveValuesAndReturnError:(NSError **)error;

/// Shows the print settings in the controls; YES, always. *error is never written.
- (BOOL)restoreValuesAndReturnError:(NSError **)error;

/// Nothing: the next restore reads the print settings anew.
- (void)PPDOptionKeyValueDidChange:(NSString *)option ppdChoice:(NSString *)choice;

@end

#endif
