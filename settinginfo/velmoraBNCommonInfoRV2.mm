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

NSString *KeyPath(NSString *section, NSString *entry) {
  return [NSString stringWithFormat:@"%@.%@", section, entry];
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

// Strings raise for a key that they do not know, and arrays answer an array: only a dictionary is a
// section.
- (id)BNCIValueForKeyPath:(NSString *)keyPath {
  NSDictionary *sections = self.settingInfoDictionary;
  NSString *name = [[keyPath componentsSeparatedByString:@"."] objectAtIndex:0];
  id section = [sections objectForKey:name];
  if (section != nil && ![section isKindOfClass:[NSDictionary class]]) return nil;
  return [sections valueForKeyPath:keyPath];
}

- (id)defaultValid {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyDefaultValue, BNCIPlistSubKeyValid)];
}

- (id)defaultSize {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyDefaultValue, BNCIPlistSubKeySize)];
}

- (id)defaultDensity {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyDefaultValue, BNCIPlistSubKeyDensity)];
}

- (id)defaultColor {
  NSString *keyPath = KeyPath(BNCIPlistMainKeyDefaultValue, BNCIPlistSubKeyColor);
  if (![self isColorPrinter]) return BNCIMonoDefaultColor;
  return [self BNCIValueForKeyPath:keyPath];
}

- (id)defaultStartNumber {
  return
      [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyDefaultValue, BNCIPlistSubKeyStartNumber)];
}

- (id)startNumberMin {
  return [self
      BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyDefaultValue, BNCIPlistSubKeyStartNumberMin)];
}

- (id)startNumberMax {
  return [self
      BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyDefaultValue, BNCIPlistSubKeyStartNumberMax)];
}

- (id)popUpItemsForSize {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyPopUpItem, BNCIPlistSubKeySize)];
}

- (id)popUpItemsForDensity {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyPopUpItem, BNCIPlistSubKeyDensity)];
}

- (id)popUpItemsForColor {
  NSString *keyPath = KeyPath(BNCIPlistMainKeyPopUpItem, BNCIPlistSubKeyColor);
  if (![self isColorPrinter]) return [NSArray arrayWithObject:BNCIMonoDefaultColor];
  return [self BNCIValueForKeyPath:keyPath];
}

- (id)panelKindID {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyId, BNCIPlistSubKeyPanelKind)];
}

- (id)ticketKeyValid {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyTicketKey, BNCIPlistSubKeyValid)];
}

- (id)ticketKeySize {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyTicketKey, BNCIPlistSubKeySize)];
}

- (id)ticketKeyDensity {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyTicketKey, BNCIPlistSubKeyDensity)];
}

- (id)ticketKeyColor {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyTicketKey, BNCIPlistSubKeyColor)];
}

- (id)ticketKeyStartNumber {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyTicketKey, BNCIPlistSubKeyStartNumber)];
}

- (id)minLabelForIntegerValueRange {
  return [self
      BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyWording, BNCIPlistSubKeyMinLabelForValueRange)];
}

- (id)maxLabelForIntegerValueRange {
  return [self
      BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyWording, BNCIPlistSubKeyMaxLabelForValueRange)];
}

- (id)prefixForLocalizeSize {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyWording, BNCIPlistSubKeyPrefixForSize)];
}

- (id)prefixForLocalizeDensity {
  return
      [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyWording, BNCIPlistSubKeyPrefixForDensity)];
}

- (id)prefixForLocalizeColor {
  return [self BNCIValueForKeyPath:KeyPath(BNCIPlistMainKeyWording, BNCIPlistSubKeyPrefixForColor)];
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
