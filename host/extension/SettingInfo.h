// The settings that a bundle lets be changed without its panel.

#ifndef HOST_EXTENSION_SETTINGINFO_H
#define HOST_EXTENSION_SETTINGINFO_H

#import <Foundation/Foundation.h>

#include <vector>

#include "host/base/Expected.h"
#include "host/extension/Setting.h"

// The settings of the resource that the bundle's Info.plist names under PDESettingInfo: the names
// and keys of its section TicketKey, the choices of PopUpItem, the ranges of DefaultValue (entries
// ending in Min and Max); a setting with neither is On or Off.
Expected<std::vector<Setting>> SettingsOfBundle(NSBundle *bundle);

#endif
