#include "printer/generator/Source.h"

#include <fstream>
#include <sstream>

#include "printer/generator/PropertyList.h"

namespace fs = std::filesystem;

namespace {

nlohmann::json ReadDictionary(const fs::path &path) {
  const std::string json = DictionaryAsJSON(path);
  if (json.empty()) throw SourceError(path.string() + ": cannot be read as a dictionary");
  return nlohmann::json::parse(json);
}

// The platform's folders carry scripts, PPD files carry countries, and want each language without a
// country too.
std::string LanguageOfFolder(const fs::path &folder) {
  std::string name = folder.stem();
  if (name == "en") return "";
  if (name == "pt_PT") return "pt";
  if (name == "zh-Hans") return "zh_CN";
  if (name == "zh-Hant") return "zh_TW";
  return name;
}

}  // namespace

std::string ReadText(const fs::path &path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  if (!file || !(text << file.rdbuf())) throw SourceError(path.string() + ": cannot be read");
  return text.str();
}

std::string ReadPostScript(const fs::path &path) {
  std::istringstream text(ReadText(path));
  std::string program;
  for (std::string line; std::getline(text, line);) {
    const size_t begin = line.find_first_not_of(' ');
    if (begin == std::string::npos || line[begin] == '%') continue;
    size_t end = line.find(" %", begin);
    if (end != std::string::npos) end -= begin;
    program += line.substr(begin, end) + "\n";
  }
  return program;
}

SourceList::SourceList(fs::path path) : path_(std::move(path)), root_(ReadDictionary(path_)) {}

const nlohmann::json &SourceList::Entry(const std::string &section, const std::string &key) const {
  const auto entries = root_.find(section);
  if (entries == root_.end() || !entries->is_object() || !entries->contains(key)) {
    throw SourceError(path_.string() + ": has no entry " + key + " in " + section);
  }
  return (*entries)[key];
}

template <typename Value>
Value SourceList::Get(const std::string &section, const std::string &key) const {
  try {
    return Entry(section, key).get<Value>();
  } catch (const nlohmann::json::type_error &) {
    throw SourceError(path_.string() + ": the entry " + key + " in " + section +
                      " has the wrong type");
  }
}

std::string SourceList::String(const std::string &section, const std::string &key) const {
  return Get<std::string>(section, key);
}

int SourceList::Integer(const std::string &section, const std::string &key) const {
  return Get<int>(section, key);
}

std::vector<std::string> SourceList::Strings(const std::string &section,
                                             const std::string &key) const {
  return Get<std::vector<std::string>>(section, key);
}

Texts::Texts(const std::vector<fs::path> &folders) {
  for (const fs::path &folder : folders) {
    for (const auto &entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() != ".lproj") continue;
      auto &table = languages_[LanguageOfFolder(entry.path())];
      for (const auto &file : fs::directory_iterator(entry.path())) {
        if (file.path().extension() != ".strings") continue;
        table.merge(ReadDictionary(file.path()).get<std::map<std::string, std::string>>());
      }
    }
  }
}

std::vector<std::string> Texts::Translations() const {
  std::vector<std::string> languages;
  for (const auto &[language, table] : languages_) {
    if (!language.empty()) languages.push_back(language);
  }
  return languages;
}

const std::string &Texts::Text(const std::string &language, const std::string &key) const {
  try {
    return languages_.at(language).at(key);
  } catch (const std::out_of_range &) {
    throw SourceError("the strings of the language " + (language.empty() ? "en" : language) +
                      " have no text for " + key);
  }
}
