#import <Foundation/Foundation.h>
#include <PrintCore/PMCore.h>

@interface PlatformPrintSettings : NSObject {
 @public
  NSMutableDictionary *_values;
  NSMutableSet *_lockedKeys;
}
@end

@implementation PlatformPrintSettings

- (instancetype)init {
  self = [super init];
  if (self == nil) return nil;
  _values = [[NSMutableDictionary alloc] init];
  _lockedKeys = [[NSMutableSet alloc] init];
  return self;
}

- (void)dealloc {
  [_values release];
  [_lockedKeys release];
  [super dealloc];
}

@end

namespace {

PlatformPrintSettings *Settings(PMPrintSettings printSettings) {
  return reinterpret_cast<PlatformPrintSettings *>(printSettings);
}

template <typename Object>
Object *FromCF(const void *reference) {
  return static_cast<Object *>(const_cast<void *>(reference));
}

}  // namespace

OSStatus PMRetain(PMObject object) {
  if (object == nullptr) return kPMInvalidParameter;
  [FromCF<NSObject>(object) retain];
  return kPMNoError;
}

OSStatus PMRelease(PMObject object) {
  if (object == nullptr) return kPMInvalidParameter;
  [FromCF<NSObject>(object) release];
  return kPMNoError;
}

OSStatus PMCreatePrintSettings(PMPrintSettings *printSettings) {
  if (printSettings == nullptr) return kPMInvalidParameter;
  *printSettings = reinterpret_cast<PMPrintSettings>([[PlatformPrintSettings alloc] init]);
  return kPMNoError;
}

OSStatus PMPrintSettingsGetValue(PMPrintSettings printSettings, CFStringRef key, CFTypeRef *value) {
  if (value == nullptr) return kPMInvalidParameter;
  *value = nullptr;
  if (printSettings == nullptr || key == nullptr) return kPMInvalidParameter;
  *value = [Settings(printSettings)->_values objectForKey:FromCF<NSString>(key)];
  return *value == nullptr ? kPMKeyNotFound : kPMNoError;
}

OSStatus PMPrintSettingsSetValue(PMPrintSettings printSettings, CFStringRef key, CFTypeRef value,
                                 Boolean locked) {
  if (printSettings == nullptr || key == nullptr) return kPMInvalidParameter;
  PlatformPrintSettings *settings = Settings(printSettings);
  NSString *name = FromCF<NSString>(key);
  if ([settings->_lockedKeys containsObject:name]) return kPMItemIsLocked;
  if (value == nullptr) {
    [settings->_values removeObjectForKey:name];
    return kPMNoError;
  }
  [settings->_values setObject:FromCF<NSObject>(value) forKey:name];
  if (locked) [settings->_lockedKeys addObject:name];
  return kPMNoError;
}

OSStatus PMPrintSettingsCopyAsDictionary(PMPrintSettings printSettings,
                                         CFDictionaryRef *settingsDictionary) {
  if (settingsDictionary == nullptr) return kPMInvalidParameter;
  *settingsDictionary = nullptr;
  if (printSettings == nullptr) return kPMInvalidParameter;
  *settingsDictionary = reinterpret_cast<CFDictionaryRef>([Settings(printSettings)->_values copy]);
  return kPMNoError;
}

OSStatus PMPrintSettingsCopyKeys(PMPrintSettings printSettings, CFArrayRef *settingsKeys) {
  if (settingsKeys == nullptr) return kPMInvalidParameter;
  *settingsKeys = nullptr;
  if (printSettings == nullptr) return kPMInvalidParameter;
  *settingsKeys = reinterpret_cast<CFArrayRef>([[Settings(printSettings)->_values allKeys] retain]);
  return kPMNoError;
}
