#import "tests/fuzz/Panel.h"

namespace fuzz {

namespace {

NSArray *Outlets() {
  return @[
    @"labelSize", @"labelDensity", @"labelColor", @"labelStartNumber", @"labelStartNumberRange",
    @"textBoxStartNumber", @"stepperStartNumber", @"functionValid", @"popUpSize", @"popUpDensity",
    @"popUpColor", @"defaultButton", @"view"
  ];
}

void Lend(velmoraBNViewControllerRV2 *from, velmoraBNViewControllerRV2 *to) {
  for (NSString *outlet in Outlets()) [to setValue:[from valueForKey:outlet] forKey:outlet];
}

void TakeBack(velmoraBNViewControllerRV2 *controller) {
  for (NSString *outlet in Outlets()) [controller setValue:nil forKey:outlet];
}

}  // namespace

TestPanel &LoadedPanel() {
  static TestPanel *panel = [] {
    auto *made = new TestPanel;
    made->Load();
    return made;
  }();
  return *panel;
}

BorrowedPanel::BorrowedPanel(velmoraBNCommonInfoRV2 *info)
    : controller_([[velmoraBNViewControllerRV2 alloc] initWithCommonInfo:info]) {
  Lend(LoadedPanel().controller(), controller_);
  @try {
    [controller_ BNVCInitializeView];
  } @catch (NSException *exception) {
    TakeBack(controller_);
    [controller_ release];
    @throw;
  }
}

BorrowedPanel::~BorrowedPanel() {
  TakeBack(controller_);
  [controller_ release];
}

void BorrowedPanel::Work() const {
  [controller_ restoreNonPPDSettingsFromPrintSettings];
  [controller_ updateView];
  [controller_.textBoxStartNumber setStringValue:@"25"];
  [controller_
      controlTextDidChange:[NSNotification notificationWithName:NSControlTextDidChangeNotification
                                                         object:controller_.textBoxStartNumber]];
  for (const NSInteger state : {NSControlStateValueOn, NSControlStateValueOff}) {
    [controller_.functionValid setState:state];
    [controller_ changeFunctionValid:controller_.functionValid];
    [controller_ saveNonPPDSettingsToPrintSettings];
    [controller_ verifyNonPPDSettingsFromPrintSettings];
    [controller_ summaryInfoWithDispOrderKey:@"order"];
  }
  [controller_ restoreDefaults:controller_.defaultButton];
}

}  // namespace fuzz
