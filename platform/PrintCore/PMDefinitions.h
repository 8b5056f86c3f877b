// Types of the PrintCore interface.

#ifndef PLATFORM_PRINTCORE_PMDEFINITIONS_H
#define PLATFORM_PRINTCORE_PMDEFINITIONS_H

#include <stdint.h>

// GNUstep has no Core Foundation of its own; Foundation objects are passed as these and cast
// freely.
typedef const void *CFTypeRef;
typedef const struct __CFString *CFStringRef;
typedef const struct __CFArray *CFArrayRef;
typedef const struct __CFDictionary *CFDictionaryRef;

typedef int32_t OSStatus;
typedef unsigned char Boolean;

typedef const void *PMObject;
typedef struct OpaquePMPrintSettings *PMPrintSettings;
typedef struct OpaquePMPageFormat *PMPageFormat;
typedef struct OpaquePMPrintSession *PMPrintSession;
typedef struct OpaquePMPrinter *PMPrinter;

#endif
