#include "host/command/JobSettings.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/job/SettingValues.h"
#include "host/presets/PresetStore.h"
#include "host/presets/Ticket.h"

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
  if (auto done = store.CheckFolders(); !done) return done.failure();
  std::string names;
  for (const Preset &preset : store.List()) names += (names.empty() ? "" : ", ") + preset.name;
  if (names.empty()) {
    return Failure{Localized("there is no preset %1; there are none yet: the dialog saves them",
                             {Quoted(name)})};
  }
  return Failure{Localized("there is no preset %1; there are: %2", {Quoted(name), names})};
}

Expected<void> Overlay(PMPrintSettings settings, PMPrintSettings over) {
  Expected<Retained<NSDictionary *>> values = ValuesOf(over);
  if (!values) return values.failure();
  for (NSString *key in values->get()) {
    Expected<Change> change = SetValue(settings, key, [values->get() objectForKey:key]);
    if (!change) return change.failure();
    if (*change == Change::kLocked) return IsLocked(key);
  }
  return {};
}

}  // namespace

Expected<PrintSettings> SettingsToBeginWith(const JobSource &source) {
  Expected<PrintSettings> ticket = ReadTicket(source.ticket);
  if (!ticket || source.preset.empty() || source.preset == kDefaultSettings) return ticket;
  Expected<PrintSettings> preset = SettingsOfPreset(source.preset);
  if (!preset) return preset;
  if (auto done = Overlay(preset->get(), ticket->get()); !done) return done.failure();
  return preset;
}
