#include "host/presets/PresetStore.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/base/ConfigFolders.h"
#include "host/base/Localized.h"
#include "host/base/MoveFile.h"
#include "host/base/NameOrder.h"
#include "host/base/Text.h"

namespace fs = std::filesystem;

namespace {

// Below a folder of settings.
constexpr char kFolder[] = "pdeprint/presets";
// No preset's: those do not begin with a dot.
constexpr char kLastUsedFile[] = ".last-used.plist";

bool Contains(const std::vector<Preset> &presets, const std::string &name) {
  return std::any_of(presets.begin(), presets.end(),
                     [&name](const Preset &preset) { return preset.name == name; });
}

// Adds the folder's presets whose names are not taken yet.
void AddPresets(const fs::path &folder, bool for_all_users, std::vector<Preset> &presets) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::optional<std::string> name = PresetNameOfFile(entry->path().filename().string());
    std::error_code unreadable;
    if (!name || !entry->is_regular_file(unreadable) || Contains(presets, *name)) continue;
    presets.push_back({*name, entry->path(), for_all_users});
  }
}

// The user's own preset of this name, or why it cannot be changed.
Expected<Preset> Changeable(const PresetStore &store, const std::string &name) {
  const std::optional<Preset> preset = store.Find(name);
  if (!preset) {
    return Failure{Localized("there is no preset %1; choose another one", {Quoted(name)})};
  }
  if (preset->for_all_users) {
    return Failure{
        Localized("%1 is for all users; save its settings as a preset of your own instead",
                  {preset->path.string()})};
  }
  return *preset;
}

}  // namespace

PresetStore::PresetStore(fs::path folder, std::vector<fs::path> folders_for_all)
    : folder_(std::move(folder)), folders_for_all_(std::move(folders_for_all)) {}

PresetStore PresetStore::OfUser() {
  const fs::path folder = UserConfigFolder();
  std::vector<fs::path> folders_for_all = SystemConfigFolders();
  for (fs::path &folder_for_all : folders_for_all) folder_for_all /= kFolder;
  return PresetStore(folder.empty() ? folder : folder / kFolder, std::move(folders_for_all));
}

std::vector<Preset> PresetStore::List() const {
  std::vector<Preset> presets = Unsorted();
  std::ranges::sort(presets, NameComesBefore, &Preset::name);
  return presets;
}

std::vector<Preset> PresetStore::Unsorted() const {
  std::vector<Preset> presets;
  AddPresets(folder_, false, presets);
  for (const fs::path &folder : folders_for_all_) AddPresets(folder, true, presets);
  return presets;
}

Expected<void> PresetStore::CheckFolders() const {
  std::vector<fs::path> folders = folders_for_all_;
  folders.insert(folders.begin(), folder_);
  for (const fs::path &folder : folders) {
    std::error_code error;
    const fs::directory_iterator entries(folder, error);
    if (error && error != std::errc::no_such_file_or_directory) {
      return Failure{Localized("cannot read %1: %2", {folder.string(), error.message()})};
    }
  }
  return {};
}

std::optional<Preset> PresetStore::Find(const std::string &name) const {
  for (Preset &preset : Unsorted()) {
    if (preset.name == name) return std::move(preset);
  }
  return std::nullopt;
}

Expected<void> PresetStore::CheckName(const std::string &name) const {
  return CheckPresetName(name);
}

Expected<void> PresetStore::MakeFolder() const {
  if (folder_.empty()) {
    return Failure{
        Localized("there is no home folder to keep presets in; set HOME or XDG_CONFIG_HOME")};
  }
  Expected<void> made = MakePrivateFolder(folder_);
  if (made) return made;
  return made.failure().Reworded(
      Localized("%1; set XDG_CONFIG_HOME to a folder that can be written", {made.message()}));
}

Expected<fs::path> PresetStore::PathForWriting(const std::string &name) const {
  if (auto done = CheckName(name); !done) return done.failure();
  if (auto done = MakeFolder(); !done) return done.failure();
  return folder_ / FileNameOfPreset(name);
}

Expected<void> PresetStore::Rename(const std::string &from, const std::string &to) const {
  if (auto done = CheckName(to); !done) return done;
  Expected<Preset> preset = Changeable(*this, from);
  if (!preset) return preset.failure();
  if (from == to) return {};

  const fs::path new_path = folder_ / FileNameOfPreset(to);
  const std::error_code error = MoveWithoutReplacing(preset->path, new_path);
  if (!error) return {};
  const std::string why = error == std::errc::file_exists
                              ? Localized("%1 is in the way; choose another name than %2",
                                          {new_path.string(), Quoted(to)})
                              : error.message();
  return Failure{Localized("cannot rename %1: %2", {preset->path.string(), why})};
}

Expected<void> PresetStore::Delete(const std::string &name) const {
  Expected<Preset> preset = Changeable(*this, name);
  if (!preset) return preset.failure();
  if (unlink(preset->path.c_str()) == 0) return {};
  return Failure{Localized("cannot delete %1: %2", {preset->path.string(), std::strerror(errno)})};
}

fs::path PresetStore::LastUsedPath() const {
  return folder_.empty() ? folder_ : folder_ / kLastUsedFile;
}

Expected<fs::path> PresetStore::LastUsedPathForWriting() const {
  if (auto done = MakeFolder(); !done) return done.failure();
  return LastUsedPath();
}
