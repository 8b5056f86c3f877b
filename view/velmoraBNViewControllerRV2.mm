#import "view/velmoraBNViewControllerRV2.h"

#import "view/velmoraBNViewControllerRV2+Input.h"

NSString *const BNVCLabelNameValid = @"EnableFunction";
NSString *const BNVCLabelNameSize = @"Size";
NSString *const BNVCLabelNameDensity = @"Density";
NSString *const BNVCLabelNameColor = @"Color";
NSString *const BNVCLabelNameStartNumber = @"StartNumber";
NSString *const BNVCLabelNameRestoreDefaults = @"RestoreDefaults";
NSString *const BNVCLabelNameRangeFormat = @"IntegerValueRangeFormat";

NSString *const BNVCLabelNameDelimiter = @":";

NSString *const BNVCKeyInstance = @"instance";
NSString *const BNVCKeyPrefix = @"prefix";
NSString *const BNVCKeyNames = @"names";

NSString *const BNVCIdentifierStartNumber = @"StartNumber";

@implementation velmoraBNViewControllerRV2

@synthesize viewIsInited = _viewIsInited;
@synthesize commonInfo = _commonInfo;
@synthesize ticket = _ticket;
@synthesize labelSize = _labelSize;
@synthesize labelDensity = _labelDensity;
@synthesize labelColor = _labelColor;
@synthesize labelStartNumber = _labelStartNumber;
@synthesize labelStartNumberRange = _labelStartNumberRange;
@synthesize textBoxStartNumber = _textBoxStartNumber;
@synthesize stepperStartNumber = _stepperStartNumber;
@synthesize functionValid = _functionValid;
@synthesize popUpSize = _popUpSize;
@synthesize popUpDensity = _popUpDensity;
@synthesize popUpColor = _popUpColor;
@synthesize defaultButton = _defaultButton;
@synthesize view = _view;

- (instancetype)initWithCommonInfo:(velmoraBNCommonInfoRV2 *)commonInfo {
  self = [super init];
  if (self == nil) return nil;
  if (commonInfo == nil) {
    [self release];
    return nil;
  }
  _commonInfo = [commonInfo retain];
  _ticket = [[velmoraBNPrintTicketManagerRV2 alloc] initWithCommonInfo:commonInfo];
  if (_ticket == nil) {
    [self release];
    return nil;
  }
  return self;
}

- (void)dealloc {
  if (self.viewIsInited) [[NSNotificationCenter defaultCenter] removeObserver:self];
  [_commonInfo release];
  [_ticket release];
  // The view and its controls stay: the dialog may still show them.
  [super dealloc];  // NOLINT(clang-analyzer-osx.cocoa.Dealloc)
}

- (NSView *)panelViewWithNibName:(NSString *)nibName {
  if (self.view != nil) return self.view;
  [NSBundle loadNibNamed:nibName owner:self];
  [self BNVCInitializeView];
  return self.view;
}

- (BOOL)restoreNonPPDSettingsFromPrintSettings {
  if (self.viewIsInited) [self.ticket restoreAllTicketsFailSafe];
  return YES;
}

- (BOOL)saveNonPPDSettingsToPrintSettings {
  if (self.viewIsInited) [self.ticket saveAllTickets];
  return YES;
}

- (BOOL)verifyNonPPDSettingsFromPrintSettings {
  [self.ticket verifyAllTickets];
  return YES;
}

- (void)BNVCInitializeView {
  [self BNVCInitializeLabel];
  [self BNVCInitializePopUp];
  [self BNVCInitializeTicket];
  [self.defaultButton setTitle:[self.commonInfo localizedString:BNVCLabelNameRestoreDefaults]];
  [self BNVCInitializeNumberValue];
  self.viewIsInited = YES;
}

// The literals of the set-up raise where a control is absent: an incomplete layout is a programming
// error that must surface.

- (void)BNVCInitializeLabel {
  NSDictionary *labels = @{
    BNVCLabelNameSize : self.labelSize,
    BNVCLabelNameDensity : self.labelDensity,
    BNVCLabelNameColor : self.labelColor,
    BNVCLabelNameStartNumber : self.labelStartNumber,
  };
  for (NSString *name in labels) {
    NSString *caption = [self.commonInfo localizedString:name];
    [[labels objectForKey:name]
        setStringValue:[caption stringByAppendingString:BNVCLabelNameDelimiter]];
  }

  NSNumber *min = [self.commonInfo startNumberMin];
  NSNumber *max = [self.commonInfo startNumberMax];
  NSString *range = [self.commonInfo localizedString:BNVCLabelNameRangeFormat];
  range = [range stringByReplacingOccurrencesOfString:[self.commonInfo minLabelForIntegerValueRange]
                                           withString:[min stringValue]];
  range = [range stringByReplacingOccurrencesOfString:[self.commonInfo maxLabelForIntegerValueRange]
                                           withString:[max stringValue]];
  [self.labelStartNumberRange setStringValue:range];
}

- (void)BNVCInitializePopUp {
  NSArray *descriptors = @[
    @{
      BNVCKeyInstance : self.popUpSize,
      BNVCKeyPrefix : [self.commonInfo prefixForLocalizeSize],
      BNVCKeyNames : [self.commonInfo popUpItemsForSize],
    },
    @{
      BNVCKeyInstance : self.popUpDensity,
      BNVCKeyPrefix : [self.commonInfo prefixForLocalizeDensity],
      BNVCKeyNames : [self.commonInfo popUpItemsForDensity],
    },
    @{
      BNVCKeyInstance : self.popUpColor,
      BNVCKeyPrefix : [self.commonInfo prefixForLocalizeColor],
      BNVCKeyNames : [self.commonInfo popUpItemsForColor],
    },
  ];
  for (NSDictionary *descriptor in descriptors) {
    NSPopUpButton *popUp = [descriptor objectForKey:BNVCKeyInstance];
    NSString *prefix = [descriptor objectForKey:BNVCKeyPrefix];
    NSArray *names = [descriptor objectForKey:BNVCKeyNames];
    [popUp removeAllItems];
    for (NSUInteger index = 0; index < [names count]; ++index) {
      NSString *name = [names objectAtIndex:index];
      NSString *localizationKey = [NSString stringWithFormat:@"%@%@", prefix, name];
      [popUp addItemWithTitle:[self.commonInfo localizedString:localizationKey]];
      [[popUp itemAtIndex:static_cast<NSInteger>(index)] setRepresentedObject:name];
    }
  }
}

- (void)BNVCInitializeTicket {
  NSDictionary *targets = @{
    BNPTMNameValid : @[ self.functionValid ],
    BNPTMNameSize : @[ self.popUpSize ],
    BNPTMNameDensity : @[ self.popUpDensity ],
    BNPTMNameColor : @[ self.popUpColor ],
    // The box first: its text is what is saved.
    BNPTMNameStartNumber : @[ self.textBoxStartNumber, self.stepperStartNumber ],
  };
  for (NSString *name in targets) {
    [self.ticket registerTargetInstances:[targets objectForKey:name] ticketName:name];
  }
  [self.ticket setTitleToValid:[self.commonInfo localizedString:BNVCLabelNameValid]];
}

- (void)BNVCInitializeNumberValue {
  velmoraBNTextBoxRV2 *textBox = self.textBoxStartNumber;
  velmoraBNStepperRV2 *stepper = self.stepperStartNumber;
  NSNumber *min = [self.commonInfo startNumberMin];
  NSNumber *max = [self.commonInfo startNumberMax];
  [textBox setIdentifier:BNVCIdentifierStartNumber];
  [textBox setValueRange:min max:max];
  [stepper setIdentifier:BNVCIdentifierStartNumber];
  [stepper setMinValue:static_cast<double>([min integerValue])];
  [stepper setMaxValue:static_cast<double>([max integerValue])];
  [[NSNotificationCenter defaultCenter] addObserver:self
                                           selector:@selector(controlTextDidChange:)
                                               name:NSControlTextDidChangeNotification
                                             object:textBox];
}

@end
