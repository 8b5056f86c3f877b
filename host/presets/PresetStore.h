// Named print settings: one property list a preset, in a folder of the user's.

#ifndef HOST_PRESETS_PRESETSTORE_H
#define HOST_PRESETS_PRESETSTORE_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/presets/PresetName.h"

struct Preset {
  std::string name;
  std::filesystem::path path;  // a ticket
  bool for_all_users = false;  // the administrator's: cannot be renamed, replaced or deleted
};

class PresetStore {
 public:
  // A folder that need not be there yet, and folders of presets for all users, the first ones
  // first. An empty folder: the user has none, and nothing can be written.
  PresetStore(std::filesystem::path folder, std::vector<std::filesystem::path> folders_for_all);

  // $XDG_CONFIG_HOME/pdeprint/presets, or ~/.config/pdeprint/presets; for all users
  // pdeprint/presets in the folders of XDG_CONFIG_DIRS, or in /etc/xdg.
  static PresetStore OfUser();

  // By name, as people sort (NameOrder.h). A user's own preset hides one for all users that has the
  // same name. Nothing is read but the folders; one that cannot be read counts as empty. What else
  // lies in them is left alone.
  std::vector<Preset> List() const;
  std::optional<Preset> Find(const std::string &name) const;
  // Why presets may be missing from the list: a folder that is there cannot be read.
  Expected<void> CheckFolders() const;

  // Why no preset can have this name; see PresetName.h.
  Expected<void> CheckName(const std::string &name) const;

  // Where a preset of this name is, or will be, stored. Makes the folder, so that it can be
  // written. The failure: CheckName's, or the folder cannot be made.
  Expected<std::filesystem::path> PathForWriting(const std::string &name) const;

  // Never replaces another preset. The failure names what is in the way.
  Expected<void> Rename(const std::string &from, const std::string &to) const;
  Expected<void> Delete(const std::string &name) const;

  // Where the settings of the last job are kept, for reading (there may be none) and for writing.
  std::filesystem::path LastUsedPath() const;
  Expected<std::filesystem::path> LastUsedPathForWriting() const;

 private:
  std::vector<Preset> Unsorted() const;
  Expected<void> MakeFolder() const;

  std::filesystem::path folder_;
  std::vector<std::filesystem::path> folders_for_all_;
};

#endif
