// Where extension bundles are found.

#ifndef HOST_EXTENSION_BUNDLESEARCH_H
#define HOST_EXTENSION_BUNDLESEARCH_H

#include <filesystem>
#include <vector>

// The folders that are looked through, first ones first: beside this program (the build tree),
// ../lib/GNUstep/Bundles from there (where it is installed), then where GNUstep keeps bundles: the
// user's ~/GNUstep/Library/Bundles (where HOME is set), /usr/local/lib/GNUstep/Bundles,
// /usr/lib/GNUstep/Bundles.
std::vector<std::filesystem::path> BundleFolders();

// The bundles (folders *.plugin) in these folders, by name in each; a path that is reached twice
// (through links) only once. Folders that are not there are no failure.
std::vector<std::filesystem::path> BundlesIn(const std::vector<std::filesystem::path> &folders);

#endif
