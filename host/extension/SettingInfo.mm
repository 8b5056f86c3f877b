#include "host/extension/SettingInfo.h"

namespace {

NSDictionary *Section(NSDictionary *settingInfo, NSString *name) {
  id section = [settingInfo objectForKey:name];
  return [section isKindOfClass:[NSDictionary class]] ? section : nil;
}

}  // namespace

Expected<std::vector<Setting>> SettingsOfBundle(NSBundle *bundle) {
  const std::string place = std::string("the bundle ") + [[bundle bundlePath] UTF8String];
  NSString *resource = [bundle objectForInfoDictionaryKey:@"PDESettingInfo"];
  NSString *path = resource == nil ? nil : [bundle pathForResource:resource ofType:@"plist"];
  if (path == nil) {
    return Failure{place + " names no setting info; its settings can only be changed on its panel"};
  }
  NSDictionary *settingInfo = [NSDictionary dictionaryWithContentsOfFile:path];
  NSDictionary *keys = Section(settingInfo, @"TicketKey");
  NSDictionary *items = Section(settingInfo, @"PopUpItem");
  NSDictionary *defaults = Section(settingInfo, @"DefaultValue");

  const auto wrong = [&place](NSString *name) {
    return Failure{place + ": its setting info has a value of the wrong kind for " +
                   [name UTF8String]};
  };
  std::vector<Setting> settings;
  for (NSString *name in [[keys allKeys] sortedArrayUsingSelector:@selector(compare:)]) {
    NSString *key = [keys objectForKey:name];
    if (![key isKindOfClass:[NSString class]]) return wrong(name);
    Setting setting{.name = [name UTF8String], .key = [key UTF8String]};
    NSNumber *min = [defaults objectForKey:[name stringByAppendingString:@"Min"]];
    NSNumber *max = [defaults objectForKey:[name stringByAppendingString:@"Max"]];
    if (NSArray *choices = [items objectForKey:name]) {
      if (![choices isKindOfClass:[NSArray class]] || [choices count] == 0) return wrong(name);
      for (NSString *choice in choices) {
        if (![choice isKindOfClass:[NSString class]]) return wrong(name);
        setting.choices.emplace_back([choice UTF8String]);
      }
    } else if (min != nil && max != nil) {
      if (![min isKindOfClass:[NSNumber class]] || ![max isKindOfClass:[NSNumber class]]) {
        return wrong(name);
      }
      setting.min = [min longValue];
      setting.max = [max longValue];
    } else {
      setting.choices = {"On", "Off"};
    }
    settings.push_back(std::move(setting));
  }
  if (settings.empty()) return Failure{place + ": its setting info lists no settings"};
  return settings;
}
