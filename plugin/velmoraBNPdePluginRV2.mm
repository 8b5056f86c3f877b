#import "plugin/velmoraBNPdePluginRV2.h"

#import <PrintCore/PrintCore.h>

#import "plugin/velmoraBNPdePanelRV2.h"
#import "settinginfo/PPDAttribute.h"

NSString *const BNPpdKeyFunctionSupport = @"VQBackgroundNumberingSupport";
NSString *const BNPpdValFunctionSupport = @"true";

NSString *const BNPanelNameKey = @"BackgroundNumbering";

@implementation velmoraBNPdePluginRV2

@synthesize bundle = _bundle;

- (BOOL)initWithBundle:(NSBundle *)bundle {
  if (bundle == nil) return NO;
  _bundle = [bundle retain];
  return YES;
}

- (void)dealloc {
  [_bundle release];
  [super dealloc];
}

- (NSArray *)PDEPanelsForType:(NSString *)pdeType withHostInfo:(velmoraBNPdeCallbackRV2 *)hostInfo {
  if (pdeType == nil || hostInfo == nil) return nil;
  if (![pdeType isEqualToString:(NSString *)kPrinterModuleTypeIDStr]) return nil;
  ppd_file_t *ppd = [(id<PDEPlugInCallbackProtocol>)hostInfo ppdFile];
  if (![self BNPPIsSupportBackgroundNumbering:ppd]) return nil;

  velmoraBNPdePanelRV2 *panel =
      [[[velmoraBNPdePanelRV2 alloc] initWithCallback:hostInfo bundle:self.bundle] autorelease];
  if (panel == nil) return nil;
  NSMutableArray *panels = [NSMutableArray array];
  [panels addObject:panel];
  return panels;
}

- (BOOL)BNPPIsSupportBackgroundNumbering:(ppd_file_t *)ppd {
  if (ppd == nullptr) return NO;
  return [PPDAttributeValue(ppd, BNPpdKeyFunctionSupport) isEqualToString:BNPpdValFunctionSupport];
}

@end
