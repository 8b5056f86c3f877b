// Umbrella of the PrintCore interface.

#ifndef PLATFORM_PRINTCORE_PRINTCORE_H
#define PLATFORM_PRINTCORE_PRINTCORE_H

#import <PrintCore/PDEPluginInterface.h>
#import <PrintCore/PMCore.h>
#import <PrintCore/PMDefinitions.h>
#import <PrintCore/PMErrors.h>
#import <PrintCore/PMPrintingDialogExtensions.h>

#endif
