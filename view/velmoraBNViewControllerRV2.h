// The panel's view: its construction, and the passage of settings between controls and tickets.

#ifndef VIEW_VELMORABNVIEWCONTROLLERRV2_H
#define VIEW_VELMORABNVIEWCONTROLLERRV2_H

#import "tickets/velmoraBNPrintTicketManagerRV2.h"
#import "view/velmoraBNButtonRV2.h"
#import "view/velmoraBNCheckBoxRV2.h"
#import "view/velmoraBNPopUpButtonRV2.h"
#import "view/velmoraBNStepperRV2.h"
#import "view/velmoraBNTextBoxRV2.h"
#import "view/velmoraBNTextLabelRV2.h"

extern "C" {

// Localized-string keys of the captions and titles.
extern NSString *const BNVCLabelNameValid;
extern NSString *const BNVCLabelNameSize;
extern NSString *const BNVCLabelNameDensity;
extern NSString *const BNVCLabelNameColor;
extern NSString *const BNVCLabelNameStartNumber;
extern NSString *const BNVCLabelNameRestoreDefaults;
extern NSString *const BNVCLabelNameRangeFormat;

// Put after a caption, not localized.
extern NSString *const BNVCLabelNameDelimiter;

// Keys of the dictionary that describes how one menu is filled.
extern NSString *const BNVCKeyInstance;
extern NSString *const BNVCKeyPrefix;
extern NSString *const BNVCKeyNames;

// Identifier of the start number's controls.
extern NSString *const BNVCIdentifierStartNumber;

}  // extern "C"

/// Owner of the panel layout, which creates the controls, connects the outlets through their
/// setters and wires the actions of velmoraBNViewControllerRV2+Input.h. Main thread only.
///
/// The view and its controls are not given back when the controller goes: the print dialog may
/// still show them. Whoever shows the view takes it out of its window before dropping the panel,
/// since its controls' target is gone then.
@interface velmoraBNViewControllerRV2 : NSObject {
  // One signed byte on every platform, where BOOL is a bool on some and an unsigned char on others.
  signed char _viewIsInited;
  velmoraBNCommonInfoRV2 *_commonInfo;
  velmoraBNPrintTicketManagerRV2 *_ticket;
  velmoraBNTextLabelRV2 *_labelSize;
  velmoraBNTextLabelRV2 *_labelDensity;
  velmoraBNTextLabelRV2 *_labelColor;
  velmoraBNTextLabelRV2 *_labelStartNumber;
  velmoraBNTextLabelRV2 *_labelStartNumberRange;
  velmoraBNTextBoxRV2 *_textBoxStartNumber;
  velmoraBNStepperRV2 *_stepperStartNumber;
  velmoraBNCheckBoxRV2 *_functionValid;
  velmoraBNPopUpButtonRV2 *_popUpSize;
  velmoraBNPopUpButtonRV2 *_popUpDensity;
  velmoraBNPopUpButtonRV2 *_popUpColor;
  velmoraBNButtonRV2 *_defaultButton;
  NSView *_view;
}

/// YES once the view has been loaded and fully set up; never reset.
@property(nonatomic) signed char viewIsInited;
@property(nonatomic, readonly, retain) velmoraBNCommonInfoRV2 *commonInfo;
@property(nonatomic, readonly, retain) velmoraBNPrintTicketManagerRV2 *ticket;

// Outlets.
@property(nonatomic, retain) velmoraBNTextLabelRV2 *labelSize;
@property(nonatomic, retain) velmoraBNTextLabelRV2 *labelDensity;
@property(nonatomic, retain) velmoraBNTextLabelRV2 *labelColor;
@property(nonatomic, retain) velmoraBNTextLabelRV2 *labelStartNumber;
@property(nonatomic, retain) velmoraBNTextLabelRV2 *labelStartNumberRange;
@property(nonatomic, retain) velmoraBNTextBoxRV2 *textBoxStartNumber;
@property(nonatomic, retain) velmoraBNStepperRV2 *stepperStartNumber;
@property(nonatomic, retain) velmoraBNCheckBoxRV2 *functionValid;
@property(nonatomic, retain) velmoraBNPopUpButtonRV2 *popUpSize;
@property(nonatomic, retain) velmoraBNPopUpButtonRV2 *popUpDensity;
@property(nonatomic, retain) velmoraBNPopUpButtonRV2 *popUpColor;
@property(assign) velmoraBNButtonRV2 *defaultButton;
@property(nonatomic, retain) NSView *view;

/// Retains the common information and makes the tickets; no view yet. nil: no common information,
/// or the tickets could not be made. Raises what the ticket manager raises.
- (instancetype)initWithCommonInfo:(velmoraBNCommonInfoRV2 *)commonInfo;

/// The panel's view. The first call loads the layout of this name from the bundle of this class and
/// sets the view up; once there is a view, any call answers it. nil: the layout connects no view.
/// Raises NSInvalidArgumentException where the layout lacks a control, or the setting information a
/// prefix, an item list, a placeholder or a bound; where only the restore-defaults button or the
/// range caption is lacking, updateView does.
- (NSView *)panelViewWithNibName:(NSString *)nibName;

/// Shows the print settings in the controls; nothing before the view is set up. Always YES.
- (BOOL)restoreNonPPDSettingsFromPrintSettings;

/// Writes the controls' values to the print settings; nothing before the view is set up. Always
/// YES.
- (BOOL)saveNonPPDSettingsToPrintSettings;

/// Corrects the print settings to what the printer can do, view or not. Always YES.
- (BOOL)verifyNonPPDSettingsFromPrintSettings;

// Steps of the view's set-up, in this order.
- (void)BNVCInitializeView;
- (void)BNVCInitializeLabel;
- (void)BNVCInitializePopUp;
- (void)BNVCInitializeTicket;
- (void)BNVCInitializeNumberValue;

@end

#endif
