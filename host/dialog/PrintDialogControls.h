// The controls that only the print dialog has, as it makes them, all autoreleased and without a
// place.

#ifndef HOST_DIALOG_PRINTDIALOGCONTROLS_H
#define HOST_DIALOG_PRINTDIALOGCONTROLS_H

#import <Cocoa/Cocoa.h>

#include <string>

/// A label that draws attention; hidden at first.
NSTextField *NoticesLabel();
/// A label that explains the control above it or before it.
NSTextField *RemarkLabel(const std::string &text);
NSColor *RemarkColor();
/// From 1 to 9999.
NSStepper *CopiesStepper();
NSBox *SeparatorLine();
/// A label on one line.
NSTextField *ProgressLabel();
/// From 0 to 1; hidden at first.
NSProgressIndicator *ProgressBar();

#endif
