#include <dlfcn.h>

#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"

namespace {

// Drivers that ship the bundle look its constants up by these names.
const struct {
  const char *symbol;
  const char *value;
} kConstants[] = {
    {"BNPpdKeyFunctionSupport", "VQBackgroundNumberingSupport"},
    {"BNPpdValFunctionSupport", "true"},
    {"BNPanelNameKey", "BackgroundNumbering"},
    {"BNCIFunctionOn", "On"},
    {"BNCIFunctionOff", "Off"},
    {"BNCIMonoDefaultColor", "Black"},
    {"BNCIPpdKeyColorDevice", "ColorDevice"},
    {"BNCIPpdValDeviceTypeColor", "True"},
    {"BNCIPpdValDeviceTypeMono", "False"},
    {"BNCISettingInfoName", "BackgroundNumberingRV2-SettingInfo"},
    {"BNCIPlistResourceType", "plist"},
    {"BNCIPlistMainKeyPopUpItem", "PopUpItem"},
    {"BNCIPlistMainKeyDefaultValue", "DefaultValue"},
    {"BNCIPlistMainKeyTicketKey", "TicketKey"},
    {"BNCIPlistMainKeyId", "ID"},
    {"BNCIPlistMainKeyWording", "Wording"},
    {"BNCIPlistSubKeyPanelKind", "PanelKind"},
    {"BNCIPlistSubKeyValid", "Valid"},
    {"BNCIPlistSubKeySize", "Size"},
    {"BNCIPlistSubKeyDensity", "Density"},
    {"BNCIPlistSubKeyColor", "Color"},
    {"BNCIPlistSubKeyStartNumber", "StartNumber"},
    {"BNCIPlistSubKeyStartNumberMin", "StartNumberMin"},
    {"BNCIPlistSubKeyStartNumberMax", "StartNumberMax"},
    {"BNCIPlistSubKeyMinLabelForValueRange", "MinLabelForValueRange"},
    {"BNCIPlistSubKeyMaxLabelForValueRange", "MaxLabelForValueRange"},
    {"BNCIPlistSubKeyPrefixForSize", "PrefixForSize"},
    {"BNCIPlistSubKeyPrefixForDensity", "PrefixForDensity"},
    {"BNCIPlistSubKeyPrefixForColor", "PrefixForColor"},
    {"BNPTMNameValid", "Valid"},
    {"BNPTMNameSize", "Size"},
    {"BNPTMNameDensity", "Density"},
    {"BNPTMNameColor", "Color"},
    {"BNPTMNameStartNumber", "StartNumber"},
    {"BNPTMKeyInstancePointer", "InstancePointer"},
    {"BNPTMKeyClass", "Class"},
    {"BNPTMKeyDefaultValue", "DefaultValue"},
    {"BNPTMKeyTicketKey", "TicketKey"},
    {"BNPTMKeyPrefix", "Prefix"},
    {"BNVCLabelNameValid", "EnableFunction"},
    {"BNVCLabelNameSize", "Size"},
    {"BNVCLabelNameDensity", "Density"},
    {"BNVCLabelNameColor", "Color"},
    {"BNVCLabelNameStartNumber", "StartNumber"},
    {"BNVCLabelNameDelimiter", ":"},
    {"BNVCLabelNameRestoreDefaults", "RestoreDefaults"},
    {"BNVCLabelNameRangeFormat", "IntegerValueRangeFormat"},
    {"BNVCKeyInstance", "instance"},
    {"BNVCKeyPrefix", "prefix"},
    {"BNVCKeyNames", "names"},
    {"BNVCIdentifierStartNumber", "StartNumber"},
};

}  // namespace

OBJC_TEST(ExportedConstants, EachIsAVisibleSymbolWithItsValue) {
  void *bundle = dlopen([[BuiltBundle() executablePath] UTF8String], RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(nullptr, bundle) << dlerror();
  for (const auto &constant : kConstants) {
    auto *symbol = static_cast<NSString **>(dlsym(bundle, constant.symbol));
    ASSERT_NE(nullptr, symbol) << constant.symbol;
    EXPECT_EQUAL_OBJECTS([NSString stringWithUTF8String:constant.value], *symbol);
  }
  dlclose(bundle);
}
