// What applications are called.

#ifndef PORTAL_APPLICATIONS_H
#define PORTAL_APPLICATIONS_H

#include <filesystem>
#include <string>
#include <vector>

// Where desktop files may be, the user's own first (XDG_DATA_HOME, XDG_DATA_DIRS).
std::vector<std::filesystem::path> DesktopFileFolders();

// The languages that the user reads, the best first, in the words of the environment: "pt_BR",
// "pt".
std::vector<std::string> LanguagesOfUser();

// The application's name as the first desktop file says it that there is, in the first of the
// languages in which it has one, else as it stands there without a language. Empty: no such file,
// or no such name.
std::string NameOfApplication(const std::string &application,
                              const std::vector<std::filesystem::path> &folders,
                              const std::vector<std::string> &languages);

#endif
