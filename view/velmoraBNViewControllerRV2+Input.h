// What the panel does when the user works it: greying, restoring defaults, checking typed text.

#ifndef VIEW_VELMORABNVIEWCONTROLLERRV2_INPUT_H
#define VIEW_VELMORABNVIEWCONTROLLERRV2_INPUT_H

#import "view/velmoraBNViewControllerRV2.h"

@interface velmoraBNViewControllerRV2 (Input)

/// Grays or enables the controls from the check box; nothing before the view is set up.
- (void)updateView;

/// Exactly the check box's on state enables everything else, but for a menu with fewer than two
/// items, which stays disabled. The check box itself is never touched.
- (void)BNVCGreyView;

/// Action of the check box: grays or enables. The setting itself is read at the next save.
- (void)changeFunctionValid:(id)sender;

/// Action of the restore-defaults button: shows the defaults of all but the check box.
- (void)restoreDefaults:(id)sender;

/// The text of the notification's object changed. Drops all but digits, clamps the number to the
/// box's range, writes it back, and passes it on to the ticket that the control's identifier names.
- (void)controlTextDidChange:(NSNotification *)notification;

/// The ASCII digits of the string, in order; "" for none and for nil.
- (NSString *)BNVCDigitString:(NSString *)string;

/// Whether the string, of one character, is one of "0123456789".
- (BOOL)BNVCIsDigitChar:(NSString *)character;

@end

#endif
