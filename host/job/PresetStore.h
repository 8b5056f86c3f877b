// Named print settings: one property list a preset, in a folder of the user's.

#ifndef HOST_JOB_PRESETSTORE_H
#define HOST_JOB_PRESETSTORE_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"

// The names that every list of presets begins with; no preset can have them.
inline constexpr char kDefaultSettings[] = "Default Settings";
inline constexpr char kLastUsed[] = "Last Used";

struct Preset {
  std::string name;
  std::filesystem::path path;  // a ticket
  bool for_all_users = false;  // the administrator's: cannot be renamed, replaced or deleted
};

class PresetStore {
 public:
  // A folder that need not be there yet, and folders of presets for all users, the first ones
  // first.
  PresetStore(std::filesystem::path folder, std::vector<std::filesystem::path> folders_for_all);

  // $XDG_CONFIG_HOME/pdeprint/presets, or ~/.config/pdeprint/presets; for all users
  // pdeprint/presets in the folders of XDG_CONFIG_DIRS, or in /etc/xdg.
  static PresetStore OfUser();

  // By name. A user's own preset hides one for all users that has the same name. Nothing is read
  // but the folders.
  std::vector<Preset> List() const;
  std::optional<Preset> Find(const std::string &name) const;

  // Why no preset can have this name: empty, blank at an end, too long for a file, not UTF-8,
  // control characters, or one of the two names above, in any case of letters.
  std::optional<Failure> CheckName(const std::string &name) const;

  // Where a preset of this name is, or will be, stored. Makes the folder, so that it can be
  // written. The failure: CheckName's, or the folder cannot be made.
  Expected<std::filesystem::path> PathForWriting(const std::string &name) const;

  // Never replaces another preset. The failure names what is in the way.
  std::optional<Failure> Rename(const std::string &from, const std::string &to) const;
  std::optional<Failure> Delete(const std::string &name) const;

  // Where the settings of the last job are kept, for reading (there may be none) and for writing.
  std::filesystem::path LastUsedPath() const;
  Expected<std::filesystem::path> LastUsedPathForWriting() const;

 private:
  std::filesystem::path folder_;
  std::vector<std::filesystem::path> folders_for_all_;
};

#endif
