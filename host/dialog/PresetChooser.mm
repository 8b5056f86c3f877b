#include "host/dialog/PresetChooser.h"

#import "host/dialog/Controls.h"
#import "host/dialog/Prompt.h"

namespace {

// What the items of the menu that are no presets do; presets have no tag.
enum Tag { kPreset, kSave = 1, kRename, kDelete };

void AddCommand(NSPopUpButton *pop_up, NSString *title, Tag tag) {
  [AddItem(pop_up, title, nil) setTag:tag];
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
  AddItem(pop_up, String(kDefaultSettings), nil);
  std::error_code error;
  if (std::filesystem::exists(store_.LastUsedPath(), error))
    AddItem(pop_up, String(kLastUsed), nil);
  const std::vector<Preset> presets = store_.List();
  if (!presets.empty()) AddSeparator(pop_up);
  for (const Preset &preset : presets) {
    Expected<PrintSettings> settings = ReadTicket(preset.path);
    if (settings) {
      AddItem(pop_up, String(preset.name), nil);
    } else {
      callbacks_.left_out("the preset \"" + preset.name + "\" is left out: " + settings.message());
    }
  }
}

void PresetChooser::Fill() {
  NSPopUpButton *pop_up = pop_up_.get();
  [pop_up setAutoenablesItems:NO];
  [pop_up removeAllItems];
  AddPresets();
  AddSeparator(pop_up);
  AddCommand(pop_up, @"Save Settings as Preset…", kSave);
  if (CurrentIsUsers()) {
    AddCommand(pop_up, [NSString stringWithFormat:@"Rename “%@”…", String(current_)], kRename);
    AddCommand(pop_up, [NSString stringWithFormat:@"Delete “%@”…", String(current_)], kDelete);
  }
  SelectCurrent();
}

void PresetChooser::SelectCurrent() {
  [pop_up_.get() selectItemWithTitle:String(current_)];
  if ([pop_up_.get() indexOfSelectedItem] < 0) {
    current_ = kDefaultSettings;
    [pop_up_.get() selectItemAtIndex:0];
  }
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
  const std::string name = Text([pop_up_.get() titleOfSelectedItem]);
  if (name == kDefaultSettings) {
    current_ = name;
    callbacks_.apply(EmptyPrintSettings());
  } else if (name == kLastUsed) {
    Apply(store_.LastUsedPath());
  } else if (const std::optional<Preset> preset = store_.Find(name)) {
    Apply(preset->path);
  } else {
    callbacks_.tell("there is no preset \"" + name + "\" any more");
  }
  Fill();
}

void PresetChooser::Apply(const std::filesystem::path &path) {
  Expected<PrintSettings> settings = ReadTicket(path);
  if (!settings) return callbacks_.tell(settings.message());
  current_ = Text([pop_up_.get() titleOfSelectedItem]);
  callbacks_.apply(std::move(*settings));
}

void PresetChooser::Save() {
  SelectCurrent();
  PMPrintSettings settings = callbacks_.settings_to_save();
  if (settings == nullptr) return;
  const std::string proposal = CurrentIsUsers() ? current_ : "";
  const std::optional<std::string> name =
      AskForText(@"Save all print settings as a preset with this name:", String(proposal), @"Save",
                 [this](const std::string &text) { return store_.CheckName(text); });
  if (!name) return;
  const std::optional<Preset> existing = store_.Find(*name);
  if (existing && !existing->for_all_users &&
      !Ask([NSString stringWithFormat:@"There is a preset “%@” already. Replace its settings?",
                                      String(*name)],
           @"Replace", @"Cancel")) {
    return;
  }
  Expected<std::filesystem::path> path = store_.PathForWriting(*name);
  if (!path) return callbacks_.tell(path.message());
  if (const auto failure = WriteTicket(*path, settings)) return callbacks_.tell(failure->message);
  current_ = *name;
  Fill();
}

void PresetChooser::Rename() {
  SelectCurrent();
  const std::optional<std::string> name =
      AskForText([NSString stringWithFormat:@"New name of the preset “%@”:", String(current_)],
                 String(current_), @"Rename", [this](const std::string &text) {
                   return text == current_ ? std::nullopt : store_.Rename(current_, text);
                 });
  if (!name) return;
  current_ = *name;
  Fill();
}

void PresetChooser::Delete() {
  SelectCurrent();
  if (!Ask([NSString stringWithFormat:
                         @"Delete the preset “%@”? The settings of this job stay as they are.",
                         String(current_)],
           @"Delete", @"Cancel")) {
    return;
  }
  if (const auto failure = store_.Delete(current_)) return callbacks_.tell(failure->message);
  current_ = kDefaultSettings;
  Fill();
}
