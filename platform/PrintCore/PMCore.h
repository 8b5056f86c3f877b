// Print settings: values under string keys, held by one job.
//
// Every function answers kPMNoError or one of the codes of PMErrors.h. None of them raises. An
// object may be used by one thread at a time.

#ifndef PLATFORM_PRINTCORE_PMCORE_H
#define PLATFORM_PRINTCORE_PMCORE_H

#include <PrintCore/PMDefinitions.h>
#include <PrintCore/PMErrors.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Adds a reference to a printing object. NULL: kPMInvalidParameter.
OSStatus PMRetain(PMObject object);

/// Gives a reference back; the last one frees the object. NULL: kPMInvalidParameter.
OSStatus PMRelease(PMObject object);

/// Makes empty print settings, which the caller owns and gives back with PMRelease.
/// A NULL result slot: kPMInvalidParameter.
OSStatus PMCreatePrintSettings(PMPrintSettings *printSettings);

/// Looks a value up. *value belongs to the settings; it is NULL when the status is not kPMNoError.
/// A NULL argument: kPMInvalidParameter. No value under the key: kPMKeyNotFound.
OSStatus PMPrintSettingsGetValue(PMPrintSettings printSettings, CFStringRef key, CFTypeRef *value);

/// Stores a value, which the settings retain; a NULL value removes the key, present or not.
/// locked: later changes of this key are refused. NULL settings or key: kPMInvalidParameter.
/// The key was stored locked: kPMItemIsLocked, and nothing changes.
OSStatus PMPrintSettingsSetValue(PMPrintSettings printSettings, CFStringRef key, CFTypeRef value,
                                 Boolean locked);

/// A new dictionary of all values under their keys, which the caller owns.
/// A NULL argument: kPMInvalidParameter.
OSStatus PMPrintSettingsCopyAsDictionary(PMPrintSettings printSettings,
                                         CFDictionaryRef *settingsDictionary);

/// A new array of all keys, in no particular order, which the caller owns.
/// A NULL argument: kPMInvalidParameter.
OSStatus PMPrintSettingsCopyKeys(PMPrintSettings printSettings, CFArrayRef *settingsKeys);

#ifdef __cplusplus
}
#endif

#endif
