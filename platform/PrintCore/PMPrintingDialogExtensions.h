// Strings that the print dialog and its extensions agree on.

#ifndef PLATFORM_PRINTCORE_PMPRINTINGDIALOGEXTENSIONS_H
#define PLATFORM_PRINTCORE_PMPRINTINGDIALOGEXTENSIONS_H

#import <Foundation/NSString.h>
#include <PrintCore/PMDefinitions.h>

#define PLATFORM_CFSTR(text) ((CFStringRef) @text)  // NOLINT(bugprone-macro-parentheses)

// Panel types, as PDEPanelsForType:withHostInfo: gets them.
#define kGeneralPageSetupDialogTypeIDStr PLATFORM_CFSTR("6E6ED964-B738-11D3-952F-0050E4603277")
#define kGeneralPrintDialogTypeIDStr PLATFORM_CFSTR("C1BF838E-B72A-11D3-9644-0050E4603277")
#define kAppPageSetupDialogTypeIDStr PLATFORM_CFSTR("B9A0DA98-E57F-11D3-9E83-0050E4603277")
#define kAppPrintDialogTypeIDStr PLATFORM_CFSTR("BCB07250-E57F-11D3-8CA6-0050E4603277")
#define kPrinterModuleTypeIDStr PLATFORM_CFSTR("BDB091F4-E57F-11D3-B5CC-0050E4603277")

// Key of a panel's summary dictionary whose value, an array, gives the order of the titles.
#define SUMMARY_DISPLAY_ORDER PLATFORM_CFSTR("Summary Display Order")

// Key of a bundle's Info.plist: its panels may be shown in sandboxed applications.
#define kPMSandboxCompatiblePDEs PLATFORM_CFSTR("PMSandboxCompatiblePDEs")

#endif
