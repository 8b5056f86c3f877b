#import "settinginfo/velmoraBNCommonInfoRV2.h"

#import "settinginfo/PPDAttribute.h"

NSString *const BNCIFunctionOn = @"On";
NSString *const BNCIFunctionOff = @"Off";

NSString *const BNCIMonoDefaultColor = @"Black";

NSString *const BNCIPpdKeyColorDevice = @"ColorDevice";
NSString *const BNCIPpdValDeviceTypeColor = @"True";
NSString *const BNCIPpdValDeviceTypeMono = @"False";

NSString *const BNCISettingInfoName = @"BackgroundNumberingRV2-SettingInfo";
NSString *const BNCIPlistResourceType = @"plist";

NSString *const BNCIPlistMainKeyPopUpItem = @"PopUpItem";
NSString *const BNCIPlistMainKeyDefaultValue = @"DefaultValue";
NSString *const BNCIPlistMainKeyTicketKey = @"TicketKey";
NSString *const BNCIPlistMainKeyId = @"ID";
NSString *const BNCIPlistMainKeyWording = @"Wording";

NSString *const BNCIPlistSubKeyPanelKind = @"PanelKind";
NSString *const BNCIPlistSubKeyValid = @"Valid";
NSString *const BNCIPlistSubKeySize = @"Size";
NSString *const BNCIPlistSubKeyDensity = @"Density";
NSString *const BNCIPlistSubKeyColor = @"Color";
NSString *const BNCIPlistSubKeyStartNumber = @"StartNumber";
NSString *const BNCIPlistSubKeyStartNumberMin = @"StartNumberMin";
NSString *const BNCIPlistSubKeyStartNumberMax = @"StartNumberMax";
NSString *const BNCIPlistSubKeyMinLabelForValueRange = @"MinLabelForValueRange";
NSString *const BNCIPlistSubKeyMaxLabelForValueRange = @"MaxLabelForValueRange";
NSString *const BNCIPlistSubKeyPrefixForSize = @"PrefixForSize";
NSString *const BNCIPlistSubKeyPrefixForDensity = @"PrefixForDensity";
NSString *const BNCIPlistSubKeyPrefixForColor = @"PrefixForColor";

namespace {

// -[NSDictionary initWithContentsOfFile:] logs on some platforms when the path is nil or the root
// is no dictionary; the plug-in stays silent about a bundle that lacks its resource.
NSDictionary *DictionaryFromPropertyList(NSString *path) {
  NSData *data = path == nil ? nil : [NSData dataWithContentsOfFile:path];
  if (data == nil) return nil;
  id root = [NSPropertyListSerialization propertyListWithData:data
                                                      options:NSPropertyListImmutable
                                                       format:nullptr
                                                        error:nullptr];
  return [root isKindOfClass:[NSDictionary class]] ? root : nil;
}

}  // namespace

@implementation velmoraBNCommonInfoRV2

@synthesize settingInfoDictionary = _settingInfoDictionary;
@synthesize bundle = _bundle;
@synthesize callback = _callback;

- (instancetype)initWithCallback:(velmoraBNPdeCallbackRV2 *)callback bundle:(NSBundle *)bundle {
  self = [super init];
  if (self == nil) return nil;
  if (callback == nil || bundle == nil) {
    [self release];
    return nil;
  }
  _bundle = [bundle retain];
  NSString *path = [bundle pathForResource:BNCISettingInfoName ofType:BNCIPlistResourceType];
  _settingInfoDictionary = [DictionaryFromPropertyList(path) retain];
  _callback = [callback retain];
  if (_settingInfoDictionary == nil) {
    [self release];
    return nil;
  }
  return self;
}

- (void)dealloc {
  [_settingInfoDictionary release];
  [_bundle release];
  [_callback release];
  [super dealloc];
}

- (NSString *)localizedString:(NSString *)key {
  return [self.bundle localizedStringForKey:key value:@"" table:nil];
}

- (id)BNCIValueInSection:(NSString *)section entry:(NSString *)entry {
  NSDictionary *values = [self.settingInfoDictionary objectForKey:section];
  return [values isKindOfClass:[NSDictionary class]] ? [values objectForKey:entry] : nil;
}

- (id)defaultValid {
  return [self BNCIValueInSection:BNCIPlistMainKeyDefaultValue entry:BNCIPlistSubKeyValid];
}

- (id)defaultSize {
  return [self BNCIValueInSection:BNCIPlistMainKeyDefaultValue entry:BNCIPlistSubKeySize];
}

- (id)defaultDensity {
  return [self BNCIValueInSection:BNCIPlistMainKeyDefaultValue entry:BNCIPlistSubKeyDensity];
}

- (id)defaultColor {
  if (![self isColorPrinter]) return BNCIMonoDefaultColor;
  return [self BNCIValueInSection:BNCIPlistMainKeyDefaultValue entry:BNCIPlistSubKeyColor];
}

- (id)defaultStartNumber {
  return [self BNCIValueInSection:BNCIPlistMainKeyDefaultValue entry:BNCIPlistSubKeyStartNumber];
}

- (id)startNumberMin {
  return [self BNCIValueInSection:BNCIPlistMainKeyDefaultValue entry:BNCIPlistSubKeyStartNumberMin];
}

- (id)startNumberMax {
  return [self BNCIValueInSection:BNCIPlistMainKeyDefaultValue entry:BNCIPlistSubKeyStartNumberMax];
}

- (id)popUpItemsForSize {
  return [self BNCIValueInSection:BNCIPlistMainKeyPopUpItem entry:BNCIPlistSubKeySize];
}

- (id)popUpItemsForDensity {
  return [self BNCIValueInSection:BNCIPlistMainKeyPopUpItem entry:BNCIPlistSubKeyDensity];
}

- (id)popUpItemsForColor {
  if (![self isColorPrinter]) return [NSArray arrayWithObject:BNCIMonoDefaultColor];
  return [self BNCIValueInSection:BNCIPlistMainKeyPopUpItem entry:BNCIPlistSubKeyColor];
}

- (id)panelKindID {
  return [self BNCIValueInSection:BNCIPlistMainKeyId entry:BNCIPlistSubKeyPanelKind];
}

- (id)ticketKeyValid {
  return [self BNCIValueInSection:BNCIPlistMainKeyTicketKey entry:BNCIPlistSubKeyValid];
}

- (id)ticketKeySize {
  return [self BNCIValueInSection:BNCIPlistMainKeyTicketKey entry:BNCIPlistSubKeySize];
}

- (id)ticketKeyDensity {
  return [self BNCIValueInSection:BNCIPlistMainKeyTicketKey entry:BNCIPlistSubKeyDensity];
}

- (id)ticketKeyColor {
  return [self BNCIValueInSection:BNCIPlistMainKeyTicketKey entry:BNCIPlistSubKeyColor];
}

- (id)ticketKeyStartNumber {
  return [self BNCIValueInSection:BNCIPlistMainKeyTicketKey entry:BNCIPlistSubKeyStartNumber];
}

- (id)minLabelForIntegerValueRange {
  return [self BNCIValueInSection:BNCIPlistMainKeyWording
                            entry:BNCIPlistSubKeyMinLabelForValueRange];
}

- (id)maxLabelForIntegerValueRange {
  return [self BNCIValueInSection:BNCIPlistMainKeyWording
                            entry:BNCIPlistSubKeyMaxLabelForValueRange];
}

- (id)prefixForLocalizeSize {
  return [self BNCIValueInSection:BNCIPlistMainKeyWording entry:BNCIPlistSubKeyPrefixForSize];
}

- (id)prefixForLocalizeDensity {
  return [self BNCIValueInSection:BNCIPlistMainKeyWording entry:BNCIPlistSubKeyPrefixForDensity];
}

- (id)prefixForLocalizeColor {
  return [self BNCIValueInSection:BNCIPlistMainKeyWording entry:BNCIPlistSubKeyPrefixForColor];
}

- (BOOL)isColorPrinter {
  return
      [[self BNCIPpdFindAttribute:BNCIPpdKeyColorDevice] isEqualToString:BNCIPpdValDeviceTypeColor];
}

- (PMPrintSettings)currentPrintSettings {
  return [(id<PDEPlugInCallbackProtocol>)self.callback printSettings];
}

- (BOOL)isReady {
  return YES;
}

- (NSString *)BNCIPpdFindAttribute:(NSString *)keyword {
  return PPDAttributeValue([(id<PDEPlugInCallbackProtocol>)self.callback ppdFile], keyword);
}

@end
