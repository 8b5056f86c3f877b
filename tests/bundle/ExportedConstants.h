// The constants of the bundle that others may use.

#ifndef TESTS_BUNDLE_EXPORTEDCONSTANTS_H
#define TESTS_BUNDLE_EXPORTEDCONSTANTS_H

struct ExportedConstant {
  const char *symbol;
  const char *value;
};

// Drivers that ship the bundle look its constants up by these names.
inline constexpr ExportedConstant kExportedConstants[] = {
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

#endif
