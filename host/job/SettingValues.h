// The values of print settings, and what keeps them from being read or changed.

#ifndef HOST_JOB_SETTINGVALUES_H
#define HOST_JOB_SETTINGVALUES_H

#import <PrintCore/PrintCore.h>

#include "host/base/Expected.h"
#include "host/base/Retained.h"

// All values under their keys, in a dictionary that does not follow later changes.
Expected<Retained<NSDictionary *>> ValuesOf(PMPrintSettings settings);

// The value under the key; nil: there is none, or no key (nil), as of bytes that are no text.
Expected<Retained<id>> ValueOf(PMPrintSettings settings, NSString *key);

enum class Change {
  kMade,
  kLocked  // an extension has locked the key: its value stays as it is
};

// Puts the value under the key; nil takes away what is there.
Expected<Change> SetValue(PMPrintSettings settings, NSString *key, id value);

// That a change was not made because the key is locked.
Failure IsLocked(NSString *key);

#endif
