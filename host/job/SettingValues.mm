#include "host/job/SettingValues.h"

#include "host/base/Localized.h"

namespace {

std::string Described(OSStatus status) {
  return Localized("error %1 of the print system", {std::to_string(status)});
}

Failure Unreadable(OSStatus status) {
  return Failure{Localized("cannot read the settings of the job: %1", {Described(status)})};
}

Failure Unchangeable(NSString *key, const std::string &why) {
  // Not all keys have UTF-8.
  NSData *name = [key dataUsingEncoding:NSUTF8StringEncoding];
  return Failure{
      Localized("cannot change %1 of the job: %2",
                {std::string(static_cast<const char *>([name bytes]), [name length]), why})};
}

}  // namespace

Expected<Retained<NSDictionary *>> ValuesOf(PMPrintSettings settings) {
  CFDictionaryRef values = nullptr;
  const OSStatus status = PMPrintSettingsCopyAsDictionary(settings, &values);
  if (status != kPMNoError) return Unreadable(status);
  return Retained<NSDictionary *>::Adopt((NSDictionary *)values);
}

Expected<Retained<id>> ValueOf(PMPrintSettings settings, NSString *key) {
  if (key == nil) return Retained<id>();
  CFTypeRef value = nullptr;
  const OSStatus status = PMPrintSettingsGetValue(settings, (CFStringRef)key, &value);
  if (status == kPMKeyNotFound) return Retained<id>();
  if (status != kPMNoError) return Unreadable(status);
  return Retained<id>::Share((id)value);
}

Expected<Change> SetValue(PMPrintSettings settings, NSString *key, id value) {
  const OSStatus status =
      PMPrintSettingsSetValue(settings, (CFStringRef)key, (CFTypeRef)value, false);
  if (status == kPMNoError) return Change::kMade;
  if (status == kPMItemIsLocked) return Change::kLocked;
  return Unchangeable(key, Described(status));
}

Failure IsLocked(NSString *key) {
  return Unchangeable(key, Localized("an extension has locked it"));
}
