#include "portal/Applications.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "portal/Texts.h"

namespace fs = std::filesystem;

namespace {

std::string Variable(const char *name) {
  const char *value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// The parts between colons that are not empty.
std::vector<std::string> Parts(const std::string &list) {
  std::vector<std::string> parts;
  std::istringstream stream(list);
  for (std::string part; std::getline(stream, part, ':');) {
    if (!part.empty()) parts.push_back(part);
  }
  return parts;
}

void AddFolder(std::vector<fs::path> &folders, const fs::path &data) {
  if (data.is_absolute()) folders.push_back(data / "applications");
}

// Without encoding and variant: desktop files name none.
void AddLanguage(std::vector<std::string> &languages, const std::string &locale) {
  const std::string language = locale.substr(0, locale.find_first_of(".@"));
  if (language.empty() || language == "C" || language == "POSIX") return;
  languages.push_back(language);
  const size_t territory = language.find('_');
  if (territory != std::string::npos) languages.push_back(language.substr(0, territory));
}

// The names of the main group, by their languages; that without one under an empty one.
std::map<std::string, std::string> NamesIn(std::istream &file) {
  constexpr size_t kMostLines = 10000;
  std::map<std::string, std::string> names;
  bool is_main = false;
  std::string line;
  for (size_t count = 0; count < kMostLines && std::getline(file, line); ++count) {
    if (line.starts_with('[')) is_main = line == "[Desktop Entry]";
    const size_t sign = line.find('=');
    if (!is_main || sign == std::string::npos) continue;
    std::string key = line.substr(0, sign);
    key.erase(key.find_last_not_of(' ') + 1);
    if (key == "Name") names.emplace("", line.substr(sign + 1));
    if (key.starts_with("Name[") && key.ends_with(']')) {
      names.emplace(key.substr(5, key.size() - 6), line.substr(sign + 1));
    }
  }
  return names;
}

}  // namespace

std::vector<fs::path> DesktopFileFolders() {
  std::vector<fs::path> folders;
  const fs::path own = Variable("XDG_DATA_HOME");
  AddFolder(folders, own.is_absolute() ? own : fs::path(Variable("HOME")) / ".local/share");
  const std::string others = Variable("XDG_DATA_DIRS");
  for (const std::string &data : Parts(others.empty() ? "/usr/local/share:/usr/share" : others)) {
    AddFolder(folders, data);
  }
  return folders;
}

std::vector<std::string> LanguagesOfUser() {
  std::string locale;
  for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (locale.empty()) locale = Variable(name);
  }
  std::vector<std::string> languages;
  // Whose language is the computer's own is asked for no other one.
  const bool has_none = locale.empty() || locale == "C" || locale == "POSIX";
  if (!has_none) {
    for (const std::string &language : Parts(Variable("LANGUAGE")))
      AddLanguage(languages, language);
  }
  AddLanguage(languages, locale);
  return languages;
}

std::string NameOfApplication(const std::string &application, const std::vector<fs::path> &folders,
                              const std::vector<std::string> &languages) {
  if (!IsApplicationName(application)) return "";
  for (const fs::path &folder : folders) {
    const fs::path path = folder / (application + ".desktop");
    std::error_code error;
    if (!fs::is_regular_file(path, error)) continue;
    std::ifstream file(path);
    const auto names = NamesIn(file);
    const auto language = std::ranges::find_if(
        languages, [&names](const std::string &known) { return names.contains(known); });
    const auto name = names.find(language == languages.end() ? "" : *language);
    return name == names.end() ? "" : CleanText(name->second);
  }
  return "";
}
