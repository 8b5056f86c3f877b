// The panel's traffic between print settings and controls, beside the same calls of the platform
// without the panel's classes between them: print settings, controls, localized strings, PPD file.

#import "bench/panel/Job.h"
#import "bench/panel/Measured.h"

namespace {

NSString *const kValid = @"VQBackgroundNumbering";
NSString *const kSize = @"VQBNSize";
NSString *const kDensity = @"VQBNDensity";
NSString *const kColor = @"VQBNColor";
NSString *const kStartNumber = @"VQStartNumber";

struct LoadedPanel {
  LoadedPanel() {
    [panel panelView];
    [panel restoreValuesAndReturnError:nullptr];
    controller = ControllerOf(panel);
  }

  NSString *Setting(NSString *key) const {
    CFTypeRef value = nullptr;
    PMPrintSettingsGetValue([job printSettings], (CFStringRef)key, &value);
    return (NSString *)value;
  }

  void Store(NSString *key, NSString *value) const {
    PMPrintSettingsSetValue([job printSettings], (CFStringRef)key, (CFTypeRef)value, false);
  }

  TestHost *job = [NewJob() retain];
  id<PDEPanel> panel = [NewPanel(job) retain];
  velmoraBNViewControllerRV2 *controller;
};

const LoadedPanel &Loaded() {
  static const LoadedPanel loaded;
  return loaded;
}

NSString *Localized(NSString *key) {
  return [BuiltBundle() localizedStringForKey:key value:@"" table:nil];
}

// As the panel is told apart for printers without color.
bool IsColorPrinter() {
  const ppd_attr_t *attribute = ppdFindAttr([Loaded().job ppdFile], "ColorDevice", nullptr);
  return attribute != nullptr && strcmp(attribute->value, "True") == 0;
}

NSString *RestoreValid() {
  NSString *value = Loaded().Setting(kValid);
  [Loaded().controller.functionValid
      setState:[value isEqualToString:@"On"] ? NSControlStateValueOn : NSControlStateValueOff];
  return value;
}

// Answers what its title is localized by.
NSString *RestorePopUp(NSPopUpButton *pop_up, NSString *key, NSString *prefix) {
  if (key == kColor && !IsColorPrinter()) Loaded().Store(kColor, @"Black");
  NSString *name = [prefix stringByAppendingString:Loaded().Setting(key)];
  [pop_up selectItemWithTitle:Localized(name)];
  return name;
}

NSString *RestoreStartNumber() {
  NSString *value = Loaded().Setting(kStartNumber);
  [Loaded().controller.textBoxStartNumber setStringValue:value];
  [Loaded().controller.stepperStartNumber setStringValue:value];
  return value;
}

void RestoreByHand() {
  velmoraBNViewControllerRV2 *controller = Loaded().controller;
  RestoreValid();
  RestorePopUp(controller.popUpSize, kSize, @"Size_");
  RestorePopUp(controller.popUpDensity, kDensity, @"Density_");
  RestorePopUp(controller.popUpColor, kColor, @"Color_");
  RestoreStartNumber();
}

void SaveByHand() {
  const LoadedPanel &loaded = Loaded();
  velmoraBNViewControllerRV2 *controller = loaded.controller;
  const bool on = [controller.functionValid state] == NSControlStateValueOn;
  loaded.Store(kValid, on ? @"On" : @"Off");
  loaded.Store(kSize, [[controller.popUpSize selectedItem] representedObject]);
  loaded.Store(kDensity, [[controller.popUpDensity selectedItem] representedObject]);
  loaded.Store(kColor, [[controller.popUpColor selectedItem] representedObject]);
  loaded.Store(kStartNumber, [controller.textBoxStartNumber stringValue]);
}

NSDictionary *SummaryByHand() {
  velmoraBNViewControllerRV2 *controller = Loaded().controller;
  NSMutableDictionary *summary = [NSMutableDictionary dictionary];
  const auto add = [summary](NSString *value, NSString *title) {
    [summary setObject:value forKey:Localized(title)];
  };
  RestoreValid();
  add(Localized(RestorePopUp(controller.popUpSize, kSize, @"Size_")), @"Size");
  add(Localized(RestorePopUp(controller.popUpDensity, kDensity, @"Density_")), @"Density");
  add(Localized(RestorePopUp(controller.popUpColor, kColor, @"Color_")), @"Color");
  add(RestoreStartNumber(), @"StartNumber");
  NSArray *order = @[
    Localized(@"Size"), Localized(@"Density"), Localized(@"Color"), Localized(@"StartNumber")
  ];
  [summary setObject:order forKey:(NSString *)SUMMARY_DISPLAY_ORDER];
  return summary;
}

const bool registered = [] {
  Measure("restore/ours", [] { [Loaded().controller restoreNonPPDSettingsFromPrintSettings]; });
  Measure("restore/platform", RestoreByHand);
  Measure("save/ours", [] { [Loaded().controller saveNonPPDSettingsToPrintSettings]; });
  Measure("save/platform", SaveByHand);
  Measure("summary/ours", [] { benchmark::DoNotOptimize([Loaded().panel summaryInfo]); });
  Measure("summary/platform", [] { benchmark::DoNotOptimize(SummaryByHand()); });
  return true;
}();

}  // namespace
