// Translations of printer options.

#ifndef HOST_PPD_EDIT_OPTIONLANGUAGES_H
#define HOST_PPD_EDIT_OPTIONLANGUAGES_H

#include <string>
#include <string_view>

// The lines, each ending with LF, with translations for exactly these languages (as cupsLanguages
// lists them): those that the lines have, or those of the nearest language, or the untranslated
// texts.
std::string InLanguages(std::string_view languages, std::string_view lines);

#endif
