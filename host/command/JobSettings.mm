#include "host/command/JobSettings.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/job/JobTicket.h"
#include "host/job/PresetStore.h"

namespace {

Expected<PrintSettings> SettingsOfPreset(const std::string &name) {
  const PresetStore store = PresetStore::OfUser();
  if (name == kLastUsed) {
    std::error_code error;
    if (std::filesystem::exists(store.LastUsedPath(), error))
      return ReadTicket(store.LastUsedPath());
    return Failure{Localized("there is no preset %1 yet: the dialog keeps it when it has printed",
                             {Quoted(name)})};
  }
  if (const std::optional<Preset> preset = store.Find(name)) return ReadTicket(preset->path);
  std::string names;
  for (const Preset &preset : store.List()) names += (names.empty() ? "" : ", ") + preset.name;
  if (names.empty()) {
    return Failure{Localized("there is no preset %1; there are none yet: the dialog saves them",
                             {Quoted(name)})};
  }
  return Failure{Localized("there is no preset %1; there are: %2", {Quoted(name), names})};
}

void Overlay(PMPrintSettings settings, PMPrintSettings over) {
  CFDictionaryRef values = nullptr;
  PMPrintSettingsCopyAsDictionary(over, &values);
  const auto dictionary = Retained<NSDictionary *>::Adopt((NSDictionary *)values);
  for (NSString *key in dictionary.get()) {
    PMPrintSettingsSetValue(settings, (CFStringRef)key, [dictionary.get() objectForKey:key], false);
  }
}

}  // namespace

Expected<PrintSettings> SettingsToBeginWith(const JobSource &source) {
  Expected<PrintSettings> ticket = ReadTicket(source.ticket);
  if (!ticket || source.preset.empty() || source.preset == kDefaultSettings) return ticket;
  Expected<PrintSettings> preset = SettingsOfPreset(source.preset);
  if (preset) Overlay(preset->get(), ticket->get());
  return preset;
}
