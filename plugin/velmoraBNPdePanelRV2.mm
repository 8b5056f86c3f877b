#import "plugin/velmoraBNPdePanelRV2.h"

#import "plugin/velmoraBNPdePluginRV2.h"
#import "view/velmoraBNViewControllerRV2+Input.h"
#import "view/velmoraBNViewControllerRV2+Summary.h"

@implementation velmoraBNPdePanelRV2

@synthesize viewController = _viewController;
@synthesize commonInfo = _commonInfo;

- (instancetype)initWithCallback:(velmoraBNPdeCallbackRV2 *)callback bundle:(NSBundle *)bundle {
  self = [super init];
  if (self == nil) return nil;
  if (callback == nil || bundle == nil) {
    [self release];
    return nil;
  }
  _commonInfo = [[velmoraBNCommonInfoRV2 alloc] initWithCallback:callback bundle:bundle];
  _viewController = [[velmoraBNViewControllerRV2 alloc] initWithCommonInfo:_commonInfo];
  if (_commonInfo == nil || _viewController == nil) {
    [self release];
    return nil;
  }
  return self;
}

- (void)dealloc {
  [_viewController release];
  [_commonInfo release];
  [supportedOptions release];
  [super dealloc];
}

- (NSString *)panelName {
  return [self.commonInfo localizedString:BNPanelNameKey];
}

- (NSString *)panelKind {
  return [self.commonInfo panelKindID];
}

- (NSView *)panelView {
  return [self.viewController panelViewWithNibName:BNPanelNameKey];
}

- (NSDictionary *)summaryInfo {
  return [self.viewController summaryInfoWithDispOrderKey:(NSString *)SUMMARY_DISPLAY_ORDER];
}

- (void)willShow {
  [self.viewController restoreNonPPDSettingsFromPrintSettings];
  [self.viewController updateView];
}

- (BOOL)shouldHide {
  return YES;
}

- (BOOL)shouldShowHelp {
  return YES;
}

- (NSArray *)supportedPPDOptionKeys {
  if (supportedOptions == nil) {
    supportedOptions = [[NSMutableArray alloc] initWithCapacity:5];
    [supportedOptions addObject:@"VQBackgroundNumbering"];
    [supportedOptions addObject:@"VQBNSize"];
    [supportedOptions addObject:@"VQBNDensity"];
    [supportedOptions addObject:@"VQBNColor"];
    [supportedOptions addObject:@"VQStartNumber"];
  }
  NSLog(@"supportedPPDOptionKeys:=NSArray(%@)", [supportedOptions description]);
  return supportedOptions;
}

- (BOOL)shouldPrint {
  return [self.viewController verifyNonPPDSettingsFromPrintSettings];
}

- (BOOL)saveValuesAndReturnError:(NSError **)error {
  (void)error;
  return [self.viewController saveNonPPDSettingsToPrintSettings];
}

- (BOOL)restoreValuesAndReturnError:(NSError **)error {
  (void)error;
  [self.viewController restoreNonPPDSettingsFromPrintSettings];
  [self.viewController updateView];
  return YES;
}

- (void)PPDOptionKeyValueDidChange:(NSString *)option ppdChoice:(NSString *)choice {
  (void)option;
  (void)choice;
}

@end
