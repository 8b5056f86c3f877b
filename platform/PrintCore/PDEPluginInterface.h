// The protocols between the print dialog and its extension bundles.

#ifndef PLATFORM_PRINTCORE_PDEPLUGININTERFACE_H
#define PLATFORM_PRINTCORE_PDEPLUGININTERFACE_H

#import <Foundation/Foundation.h>
#include <PrintCore/PMDefinitions.h>
#include <cups/ppd.h>

@class NSView;
@protocol PDEPanel;
@protocol PDEPlugInCallbackProtocol;

/// A principal class that declares this protocol is created with initWithBundle: alone, which then
/// answers the object. One that does not declare it is created with init, and initWithBundle:
/// answers a boolean.
@protocol PDEPlugIn <NSObject>

/// The plug-in's bundle, never nil. Answers the object, or nil: the bundle offers no panels.
- (instancetype)initWithBundle:(NSBundle *)theBundle;

/// The panels to show for one of the panel types of PMPrintingDialogExtensions.h; nil or an empty
/// array: none. The array is autoreleased and the only owner of the panels.
- (NSArray *)PDEPanelsForType:(NSString *)pdeType withHostInfo:(id<PDEPlugInCallbackProtocol>)host;

@end

/// One panel of the print dialog. All calls come on the main thread.
@protocol PDEPanel <NSObject>

@required

/// The panel is about to be seen.
- (void)willShow;

/// Whether the panel may be taken from sight; NO keeps it.
- (BOOL)shouldHide;

/// Writes the controls' values to the settings. NO: refused, *error may say why.
- (BOOL)saveValuesAndReturnError:(NSError **)error;

/// Sets the controls from the settings. NO: failed, *error may say why.
- (BOOL)restoreValuesAndReturnError:(NSError **)error;

/// The dialog, not the panel, changed the choice of a PPD option (for instance to resolve a
/// conflict); both are PPD keywords.
- (void)PPDOptionKeyValueDidChange:(NSString *)option ppdChoice:(NSString *)choice;

/// The view with the panel's controls, owned by the panel; nil: nothing to show.
- (NSView *)panelView;

/// The localized name, for the dialog's panel menu.
- (NSString *)panelName;

/// A string that no other kind of panel answers.
- (NSString *)panelKind;

/// Localized values under localized titles, and under SUMMARY_DISPLAY_ORDER, if present, the order
/// of the titles. nil: nothing to say.
- (NSDictionary *)summaryInfo;

@optional

/// Keywords of the PPD options that this panel shows; the dialog does not show them again.
- (NSArray *)supportedPPDOptionKeys;

/// YES: the dialog shows its own help. NO: the panel has shown help.
- (BOOL)shouldShowHelp;

/// NO: the job must not be printed as it stands; the panel has told the user why.
- (BOOL)shouldPrint;

/// The dialog closes, userCanceled: without printing.
- (void)printWindowWillClose:(BOOL)userCanceled;

@end

/// What a panel may ask of the print dialog. Every answer stays the dialog's own and can change
/// between calls; NULL: there is none.
@protocol PDEPlugInCallbackProtocol

- (PMPrintSession)printSession;
- (PMPrintSettings)printSettings;
- (PMPageFormat)pageFormat;
- (PMPrinter)PMPrinter;
- (struct ppd_file_s *)ppdFile;

/// Asks before a panel changes the choice of a PPD option; NO: leave it as it is.
- (BOOL)willChangePPDOptionKeyValue:(NSString *)option ppdChoice:(NSString *)choice;

@end

#endif
