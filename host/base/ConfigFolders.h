// Where programs keep their settings: the folders of the XDG base directories.

#ifndef HOST_BASE_CONFIGFOLDERS_H
#define HOST_BASE_CONFIGFOLDERS_H

#include <filesystem>
#include <optional>
#include <vector>

#include "host/base/Expected.h"

// XDG_CONFIG_HOME, or .config in the home folder. A relative path counts as none. The home folder
// is HOME, or the one of the password database. Empty: the user has no home.
std::filesystem::path UserConfigFolder();

// The folders of XDG_CONFIG_DIRS in their order, relative ones left out; or /etc/xdg.
std::vector<std::filesystem::path> SystemConfigFolders();

// Makes the folder and the ones above it that are missing, for the user alone. That it is there
// already is no failure.
Expected<void> MakePrivateFolder(const std::filesystem::path &folder);

#endif
