// Property lists and strings files, as JSON.

#ifndef PRINTER_GENERATOR_PROPERTYLIST_H
#define PRINTER_GENERATOR_PROPERTYLIST_H

#include <filesystem>
#include <string>

// The dictionary of an XML property list, or of a strings file in UTF-8, as JSON text. Empty: the
// file cannot be read, or holds no dictionary.
std::string DictionaryAsJSON(const std::filesystem::path &path);

#endif
