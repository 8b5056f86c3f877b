#include "host/extension/Guarded.h"
#include "host/extension/SettingInfo.h"
#include "tests/fuzz/Outcome.h"
#import "tests/fuzz/Panel.h"
#include "tests/fuzz/Targets.h"

namespace fuzz {

namespace {

// A bundle whose setting info is written anew for each input.
class InfoBundle {
 public:
  InfoBundle() {
    folder_.Write("Fuzz.bundle/Resources/Info.plist",
                  "{ CFBundleIdentifier = \"fuzz.settinginfo\"; CFBundlePackageType = BNDL;"
                  "  PDESettingInfo = \"BackgroundNumberingRV2-SettingInfo\"; }");
    Write("{}");
    const std::string path = (folder_.path() / "Fuzz.bundle").string();
    bundle_ = [[NSBundle alloc] initWithPath:[NSString stringWithUTF8String:path.c_str()]];
  }
  // With a line end: the platform's parser reads on behind a file that ends within a tag.
  void Write(std::string_view info) const {
    folder_.Write("Fuzz.bundle/Resources/BackgroundNumberingRV2-SettingInfo.plist",
                  std::string(info) + '\n');
  }
  NSBundle *get() const { return bundle_; }

 private:
  TemporaryFolder folder_;
  NSBundle *bundle_;
};

void AskEverything(velmoraBNCommonInfoRV2 *info) {
  [info defaultValid];
  [info defaultSize];
  [info defaultDensity];
  [info defaultColor];
  [info defaultStartNumber];
  [info startNumberMin];
  [info startNumberMax];
  [info popUpItemsForSize];
  [info popUpItemsForDensity];
  [info popUpItemsForColor];
  [info panelKindID];
  [info ticketKeyValid];
  [info ticketKeySize];
  [info ticketKeyDensity];
  [info ticketKeyColor];
  [info ticketKeyStartNumber];
  [info minLabelForIntegerValueRange];
  [info maxLabelForIntegerValueRange];
  [info prefixForLocalizeSize];
  [info prefixForLocalizeDensity];
  [info prefixForLocalizeColor];
}

bool ParserRaises(std::string_view file) {
  const std::string text = std::string(file) + '\n';
  NSData *data = [NSData dataWithBytes:text.data() length:text.size()];
  @try {
    [NSPropertyListSerialization propertyListWithData:data
                                              options:NSPropertyListImmutable
                                               format:nullptr
                                                error:nullptr];
  } @catch (NSException *exception) {
    return true;
  }
  return false;
}

// What the platform's parser raises comes through. Once the file is read no accessor raises,
// whatever it holds; the panel does where something is missing.
std::string Read(std::string_view file, NSBundle *bundle) {
  if (ParserRaises(file)) return "";
  TestHost *host = LoadedPanel().host();
  velmoraBNCommonInfoRV2 *info =
      [[[velmoraBNCommonInfoRV2 alloc] initWithCallback:[host callback] bundle:bundle] autorelease];
  if (info == nil) return "";
  if (![info isReady]) return "the common information is not ready";
  AskEverything(info);
  return Outcome(
      [info] {
        BorrowedPanel(info).Work();
        return "";
      },
      NSInvalidArgumentException);
}

// Formats of the platform's own, in which a few bytes make its reader allocate gigabytes.
bool IsBinary(std::string_view file) {
  return file.starts_with('\0') || file.starts_with("bplist");
}

std::string Run(std::string_view file) {
  if (IsBinary(file)) return "";
  static const InfoBundle bundle;
  bundle.Write(file);
  // As the host reads it.
  WhatRaises([] { (void)SettingsOfBundle(bundle.get()); });

  TestHost *host = LoadedPanel().host();
  const auto with_settings_of_its_own = [&] {
    PMPrintSettings settings = host->settings;
    PMCreatePrintSettings(&host->settings);
    const std::string finding = Outcome([file] { return Read(file, bundle.get()); });
    PMRelease(host->settings);
    host->settings = settings;
    return finding;
  };
  return with_settings_of_its_own();
}

}  // namespace

std::string TrySettingInfo(std::string_view file) {
  return Outcome([file] { return Run(file); });
}

}  // namespace fuzz
