#include "host/dialog/PresetChooser.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"
#import "host/dialog/Controls.h"
#import "host/dialog/Prompt.h"

namespace {

// What the items of the menu that are no presets do; presets have no tag.
enum Tag { kPreset, kSave = 1, kRename, kDelete };

void AddPreset(NSPopUpButton *pop_up, const std::string &title, const std::string &name) {
  AddItem(pop_up, String(title), String(name));
}

void AddCommand(NSPopUpButton *pop_up, const std::string &title, Tag tag) {
  [AddItem(pop_up, String(title), nil) setTag:tag];
}

// Two items of one title could not be told apart.
Expected<void> CheckTitle(const std::string &name) {
  if (name != Localized("Default Settings") && name != Localized("Last Used")) return {};
  return Failure{
      Localized("no preset can be named %1: %2",
                {Quoted(name),
                 Localized("every list of presets has an item of this name; choose another one")})};
}

}  // namespace

PresetChooser::PresetChooser(NSPopUpButton *pop_up, PresetStore store, Callbacks callbacks)
    : pop_up_(Retained<NSPopUpButton *>::Share(pop_up)),
      store_(std::move(store)),
      callbacks_(std::move(callbacks)) {}

bool PresetChooser::CurrentIsUsers() const {
  const std::optional<Preset> preset = store_.Find(current_);
  return preset && !preset->for_all_users;
}

void PresetChooser::AddPresets() {
  NSPopUpButton *pop_up = pop_up_.get();
  AddPreset(pop_up, Localized("Default Settings"), kDefaultSettings);
  std::error_code error;
  if (std::filesystem::exists(store_.LastUsedPath(), error)) {
    AddPreset(pop_up, Localized("Last Used"), kLastUsed);
  }
  const std::vector<Preset> presets = store_.List();
  if (!presets.empty()) AddSeparator(pop_up);
  for (const Preset &preset : presets) {
    Expected<PrintSettings> settings = ReadTicket(preset.path);
    if (settings) {
      AddPreset(pop_up, preset.name, preset.name);
    } else {
      callbacks_.left_out(
          Localized("the preset %1 is left out: %2", {Quoted(preset.name), settings.message()}));
    }
  }
}

void PresetChooser::Fill() {
  NSPopUpButton *pop_up = pop_up_.get();
  [pop_up setAutoenablesItems:NO];
  [pop_up removeAllItems];
  AddPresets();
  AddSeparator(pop_up);
  AddCommand(pop_up, Localized("Save Settings as Preset…"), kSave);
  if (CurrentIsUsers()) {
    AddCommand(pop_up, Localized("Rename “%1”…", {current_}), kRename);
    AddCommand(pop_up, Localized("Delete “%1”…", {current_}), kDelete);
  }
  SelectCurrent();
}

void PresetChooser::SelectCurrent() {
  NSInteger index = [pop_up_.get() indexOfItemWithRepresentedObject:String(current_)];
  if (index < 0) {
    current_ = kDefaultSettings;
    index = 0;
  }
  [pop_up_.get() selectItemAtIndex:index];
}

void PresetChooser::Select(const std::string &name) {
  current_ = name;
  Fill();
}

void PresetChooser::Choose() {
  switch ([[pop_up_.get() selectedItem] tag]) {
    case kSave:
      return Save();
    case kRename:
      return Rename();
    case kDelete:
      return Delete();
    default:
      break;
  }
  const std::string name = Text([[pop_up_.get() selectedItem] representedObject]);
  if (name == kDefaultSettings) {
    current_ = name;
    callbacks_.apply(EmptyPrintSettings());
  } else if (name == kLastUsed) {
    Apply(store_.LastUsedPath());
  } else if (const std::optional<Preset> preset = store_.Find(name)) {
    Apply(preset->path);
  } else {
    callbacks_.tell(Localized("there is no preset %1 any more", {Quoted(name)}));
  }
  Fill();
}

void PresetChooser::Apply(const std::filesystem::path &path) {
  Expected<PrintSettings> settings = ReadTicket(path);
  if (!settings) return callbacks_.tell(settings.message());
  current_ = Text([[pop_up_.get() selectedItem] representedObject]);
  callbacks_.apply(std::move(*settings));
}

void PresetChooser::Save() {
  SelectCurrent();
  PMPrintSettings settings = callbacks_.settings_to_save();
  if (settings == nullptr) return;
  const std::string proposal = CurrentIsUsers() ? current_ : "";
  const std::optional<std::string> name =
      AskForText(Localized("Save all print settings as a preset with this name:"), proposal,
                 Localized("Save"), [this](const std::string &text) {
                   const auto checked = CheckTitle(text);
                   return checked ? store_.CheckName(text) : checked;
                 });
  if (!name) return;
  const std::optional<Preset> existing = store_.Find(*name);
  if (existing && !existing->for_all_users &&
      !Ask(Localized("There is a preset “%1” already. Replace its settings?", {*name}),
           Localized("Replace"), Localized("Cancel"))) {
    return;
  }
  Expected<std::filesystem::path> path = store_.PathForWriting(*name);
  if (!path) return callbacks_.tell(path.message());
  if (auto done = WriteTicket(*path, settings); !done) return callbacks_.tell(done.message());
  current_ = *name;
  Fill();
}

void PresetChooser::Rename() {
  SelectCurrent();
  const std::optional<std::string> name =
      AskForText(Localized("New name of the preset “%1”:", {current_}), current_,
                 Localized("Rename"), [this](const std::string &text) -> Expected<void> {
                   if (text == current_) return {};
                   const auto checked = CheckTitle(text);
                   return checked ? store_.Rename(current_, text) : checked;
                 });
  if (!name) return;
  current_ = *name;
  Fill();
}

void PresetChooser::Delete() {
  SelectCurrent();
  if (!Ask(Localized("Delete the preset “%1”? The settings of this job stay as they are.",
                     {current_}),
           Localized("Delete"), Localized("Cancel"))) {
    return;
  }
  if (auto done = store_.Delete(current_); !done) return callbacks_.tell(done.message());
  current_ = kDefaultSettings;
  Fill();
}
