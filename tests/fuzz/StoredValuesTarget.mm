#include <algorithm>

#include "tests/fuzz/Outcome.h"
#import "tests/fuzz/Panel.h"
#import "tests/fuzz/StoredValues.h"
#include "tests/fuzz/Targets.h"

namespace fuzz {

namespace {

// A panel that stays, of a printer with or without color.
class StayingPanel {
 public:
  explicit StayingPanel(const char *printer) : panel_(PanelOptions{.ppd_lines = printer}) {
    panel_.Load();
  }
  velmoraBNViewControllerRV2 *controller() const { return panel_.controller(); }

  // Gives the job new print settings with these values.
  void Store(NSDictionary *values) const {
    TestHost *host = panel_.host();
    PMRelease(host->settings);
    PMCreatePrintSettings(&host->settings);
    for (NSString *key in values) [host setValue:[values objectForKey:key] forSetting:key];
  }
  NSDictionary *Stored() const { return [panel_.host() allSettings]; }

 private:
  TestPanel panel_;
};

NSArray *OwnKeys() {
  return @[ @"VQBackgroundNumbering", @"VQBNSize", @"VQBNDensity", @"VQBNColor", @"VQStartNumber" ];
}

bool AreStrings(NSDictionary *values) {
  for (NSString *key in OwnKeys()) {
    id value = [values objectForKey:key];
    if (value != nil && ![value isKindOfClass:[NSString class]]) return false;
  }
  return true;
}

// Values that may be saved; a menu without a selection saves none.
std::string WhatIsWrong(NSDictionary *saved, velmoraBNCommonInfoRV2 *info) {
  NSDictionary *allowed = @{
    @"VQBackgroundNumbering" : @[ @"On", @"Off" ],
    @"VQBNSize" : [info popUpItemsForSize],
    @"VQBNDensity" : [info popUpItemsForDensity],
    @"VQBNColor" : [info popUpItemsForColor],
  };
  for (NSString *key in allowed) {
    id value = [saved objectForKey:key];
    if (value == nil || [[allowed objectForKey:key] containsObject:value]) continue;
    return std::string([key UTF8String]) + " is saved as " + [[value description] UTF8String];
  }
  NSString *number = [saved objectForKey:@"VQStartNumber"];
  if ([[NSString stringWithFormat:@"%ld", static_cast<long>([number integerValue])]
          isEqual:number]) {
    return "";
  }
  return std::string("the start number is saved as ") + [[number description] UTF8String];
}

void ShowAndSave(velmoraBNViewControllerRV2 *controller) {
  [controller restoreNonPPDSettingsFromPrintSettings];
  [controller updateView];
  [controller summaryInfoWithDispOrderKey:@"order"];
  [controller verifyNonPPDSettingsFromPrintSettings];
  [controller saveNonPPDSettingsToPrintSettings];
}

std::string Work(const StayingPanel &panel, NSDictionary *values) {
  panel.Store(values);
  velmoraBNViewControllerRV2 *controller = panel.controller();
  ShowAndSave(controller);
  const std::string finding = WhatIsWrong(panel.Stored(), controller.commonInfo);
  if (!finding.empty()) return finding;

  // What was missing is shown, and saved, as its default.
  ShowAndSave(controller);
  NSDictionary *saved = panel.Stored();
  for (NSString *key in OwnKeys()) {
    if ([saved objectForKey:key] == nil) return std::string([key UTF8String]) + " is not saved";
  }
  ShowAndSave(controller);
  return [panel.Stored() isEqual:saved] ? "" : "saving again changes the settings";
}

}  // namespace

std::string TryStoredValues(std::string_view lines) {
  return Outcome([lines] {
    static const StayingPanel color(kColorDevice);
    static const StayingPanel monochrome(kMonoDevice);
    NSDictionary *values = StoredValues(lines);
    // The panel takes all values for strings, and others raise.
    NSString *passes = AreStrings(values) ? nil : NSInvalidArgumentException;
    for (const StayingPanel *panel : {&color, &monochrome}) {
      const std::string finding = Outcome([&] { return Work(*panel, values); }, passes);
      if (!finding.empty()) return finding;
    }
    return std::string();
  });
}

}  // namespace fuzz
