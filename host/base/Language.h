// The user's language, and the tables of the program's texts in it.

#ifndef HOST_BASE_LANGUAGE_H
#define HOST_BASE_LANGUAGE_H

#include <filesystem>
#include <vector>

#include "host/base/Localized.h"

// The folders that are looked through, first ones first: share/pdeprint beside this program (the
// build tree), ../share/pdeprint from there (where it is installed).
std::vector<std::filesystem::path> StringsFolders();

// The table of the user's language, pdeprint.strings in one of the folders LANGUAGE.lproj, as the
// platform chooses it for bundles: extension panels are in the same language. Empty: there is none,
// or it cannot be read.
Translation TranslationIn(const std::filesystem::path &folder);

// Uses the first table that is found. Call once, on the main thread.
void UseLanguageOfUser();

#endif
