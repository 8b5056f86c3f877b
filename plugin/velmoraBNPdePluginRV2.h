// The plug-in's principal object.

#ifndef PLUGIN_VELMORABNPDEPLUGINRV2_H
#define PLUGIN_VELMORABNPDEPLUGINRV2_H

#import "settinginfo/velmoraBNPdeCallbackRV2.h"

#include <cups/ppd.h>

extern "C" {

// The PPD attribute that declares support, and the one value that does.
extern NSString *const BNPpdKeyFunctionSupport;
extern NSString *const BNPpdValFunctionSupport;

// Localized-string key of the panel's name, and name of the panel layout.
extern NSString *const BNPanelNameKey;

}  // extern "C"

/// The print system makes one with init, hands it its bundle, and asks it for panels. It does not
/// declare the protocol PDEPlugIn: of an object that does, initWithBundle: would have to answer the
/// object. Main thread only. Nothing is logged.
@interface velmoraBNPdePluginRV2 : NSObject {
  NSBundle *_bundle;
}

@property(nonatomic, readonly, retain) NSBundle *bundle;

/// Retains the plug-in's bundle. NO: it is nil. Whether it is complete shows when a panel is made.
- (BOOL)initWithBundle:(NSBundle *)bundle;

/// The background-numbering panel in an autoreleased array, its only owner. nil: a missing
/// argument, another panel type than the printer-module one, a queue whose PPD file does not
/// declare support, or an incomplete bundle. Decided anew on every call; the PPD file is not asked
/// for in vain.
- (NSArray *)PDEPanelsForType:(NSString *)pdeType withHostInfo:(velmoraBNPdeCallbackRV2 *)hostInfo;

/// Whether the parsed PPD file, which may be NULL, declares support: the value of the first
/// attribute of that keyword is exactly "true".
- (BOOL)BNPPIsSupportBackgroundNumbering:(ppd_file_t *)ppd;

@end

#endif
