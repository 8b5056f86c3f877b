// Fixed knowledge of the plug-in and the state of the print job, for every other object of a panel.

#ifndef SETTINGINFO_VELMORABNCOMMONINFORV2_H
#define SETTINGINFO_VELMORABNCOMMONINFORV2_H

#import <Cocoa/Cocoa.h>
#import <PrintCore/PrintCore.h>
#import "settinginfo/velmoraBNPdeCallbackRV2.h"

extern "C" {

// Stored values of the on/off setting.
extern NSString *const BNCIFunctionOn;
extern NSString *const BNCIFunctionOff;

// Default and only item of the color setting on a printer without color.
extern NSString *const BNCIMonoDefaultColor;

// The PPD attribute that tells color printers from monochrome ones, and its values.
extern NSString *const BNCIPpdKeyColorDevice;
extern NSString *const BNCIPpdValDeviceTypeColor;
extern NSString *const BNCIPpdValDeviceTypeMono;

// The setting-info resource.
extern NSString *const BNCISettingInfoName;
extern NSString *const BNCIPlistResourceType;

// Its sections.
extern NSString *const BNCIPlistMainKeyPopUpItem;
extern NSString *const BNCIPlistMainKeyDefaultValue;
extern NSString *const BNCIPlistMainKeyTicketKey;
extern NSString *const BNCIPlistMainKeyId;
extern NSString *const BNCIPlistMainKeyWording;

// Entries of its sections.
extern NSString *const BNCIPlistSubKeyPanelKind;
extern NSString *const BNCIPlistSubKeyValid;
extern NSString *const BNCIPlistSubKeySize;
extern NSString *const BNCIPlistSubKeyDensity;
extern NSString *const BNCIPlistSubKeyColor;
extern NSString *const BNCIPlistSubKeyStartNumber;
extern NSString *const BNCIPlistSubKeyStartNumberMin;
extern NSString *const BNCIPlistSubKeyStartNumberMax;
extern NSString *const BNCIPlistSubKeyMinLabelForValueRange;
extern NSString *const BNCIPlistSubKeyMaxLabelForValueRange;
extern NSString *const BNCIPlistSubKeyPrefixForSize;
extern NSString *const BNCIPlistSubKeyPrefixForDensity;
extern NSString *const BNCIPlistSubKeyPrefixForColor;

}  // extern "C"

/// One per panel, shared by reference and never copied; does not change after creation. Every
/// answer is computed at the moment of the call. Main thread only. Nothing is logged.
///
/// The accessors answer what stands in the setting-info resource under the entry that they name, as
/// it stands: no conversion, no check of the type, nil where the section or the entry is absent (a
/// section that is not a dictionary counts as absent). The stored types are given as comments.
@interface velmoraBNCommonInfoRV2 : NSObject {
  NSDictionary *_settingInfoDictionary;
  NSBundle *_bundle;
  velmoraBNPdeCallbackRV2 *_callback;
}

/// The whole resource as loaded; the stored object itself.
@property(nonatomic, readonly, copy) NSDictionary *settingInfoDictionary;
/// The plug-in's bundle: source of the resource and of localized strings.
@property(nonatomic, readonly, retain) NSBundle *bundle;
/// The print dialog's object; see velmoraBNPdeCallbackRV2.
@property(nonatomic, readonly, retain) velmoraBNPdeCallbackRV2 *callback;

/// Retains both arguments and loads the setting-info resource. nil: an argument is nil, or the
/// bundle has no such resource, or it is no property list with a dictionary as its root.
- (instancetype)initWithCallback:(velmoraBNPdeCallbackRV2 *)callback bundle:(NSBundle *)bundle;

/// The text for the key in the bundle's default strings table; the key itself where it has none.
- (NSString *)localizedString:(NSString *)key;

- (id)defaultValid;        // string: "On" or "Off"
- (id)defaultSize;         // string: one of popUpItemsForSize
- (id)defaultDensity;      // string: one of popUpItemsForDensity
- (id)defaultColor;        // string: one of popUpItemsForColor; "Black" on a printer without color
- (id)defaultStartNumber;  // string of decimal digits
- (id)startNumberMin;      // number
- (id)startNumberMax;      // number

- (id)popUpItemsForSize;     // array of strings, in menu order
- (id)popUpItemsForDensity;  // array of strings, in menu order
- (id)popUpItemsForColor;    // likewise; a new array of "Black" alone on a printer without color

- (id)panelKindID;  // string that no other kind of panel has

- (id)ticketKeyValid;  // strings: the keys of the job's print settings
- (id)ticketKeySize;
- (id)ticketKeyDensity;
- (id)ticketKeyColor;
- (id)ticketKeyStartNumber;

- (id)minLabelForIntegerValueRange;  // strings: the placeholders in the range caption's format
- (id)maxLabelForIntegerValueRange;

- (id)prefixForLocalizeSize;  // strings: put before an item, they make its localized-string key
- (id)prefixForLocalizeDensity;
- (id)prefixForLocalizeColor;

/// YES exactly when the queue's PPD file says ColorDevice "True", in this spelling; NO without a
/// file or the attribute.
- (BOOL)isColorPrinter;

/// The job's print settings as the print dialog answers them now; NULL: none. Never owned.
- (PMPrintSettings)currentPrintSettings;

/// YES. A print ticket asks at the end of its creation, and is not made when the answer is NO.
- (BOOL)isReady;

/// The value of the first attribute of the queue's PPD file with this keyword; nil as in
/// PPDAttributeValue.
- (NSString *)BNCIPpdFindAttribute:(NSString *)keyword;

@end

#endif
