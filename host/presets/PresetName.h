// The names of presets, and of their files.

#ifndef HOST_PRESETS_PRESETNAME_H
#define HOST_PRESETS_PRESETNAME_H

#include <optional>
#include <string>
#include <string_view>

#include "host/base/Expected.h"

// The names that every list of presets begins with; no preset can have them.
inline constexpr char kDefaultSettings[] = "Default Settings";
inline constexpr char kLastUsed[] = "Last Used";

// Why no preset can have this name: empty, blank at an end, too long for a file, not UTF-8,
// control characters, or one of the two names above, in any case of letters.
Expected<void> CheckPresetName(std::string_view name);

// The name of the preset's file: the name, with %XX for what a path cannot hold or hides, and
// ".plist". Different names have different files.
std::string FileNameOfPreset(std::string_view name);

// The name of the preset whose file has this name; none: it is no preset's file.
std::optional<std::string> PresetNameOfFile(std::string_view file_name);

#endif
